#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTimer>

#include "desktop/qt/control_view.h"
#include "desktop/qt/conversions.h"
#include "desktop/qt/form.h"
#include "desktop/qt/window_view.h"

namespace forms::qt {

namespace {

// --- Label ---------------------------------------------------------------------------------------

class LabelWidget final : public QLabel, public Pressable {
public:
  using QLabel::QLabel;
};

class LabelView final : public ViewOf<Label, LabelWidget> {
public:
  LabelView(Label& label, Screen& screen, QWidget* form)
      : ViewOf(label, screen, new LabelWidget(form)) {
    widget().role = label.Announced ? QAccessible::Notification : QAccessible::StaticText;
    offerPress(static_cast<bool>(label.Click));
    widget().setAlignment(Qt::AlignLeft | Qt::AlignTop);
    widget().setAutoFillBackground(label.BackColor.has_value());
    setColors(QPalette::Window, QPalette::WindowText);
  }

protected:
  void syncKind() override {
    widget().setText(caption());
    widget().setFrameShape(shown().Framed ? QFrame::Box : QFrame::NoFrame);
    // Where there is room for one line only, a wrapped word would vanish altogether.
    const QFont font = screen().fonts.fontFor(shown().TextFont, scale());
    widget().setWordWrap(widget().height() >= 2 * QFontMetrics(font).lineSpacing());
    fitText(widget(), font, caption(), widget().contentsRect().size(), widget().wordWrap());
    if (shown().Announced)
      screen().announcer.announce(widget(), widget().accessibleName());
  }
  QString caption() const override { return toQt(shown().Caption); }
};

// --- Text box of one line ------------------------------------------------------------------------

class TextBoxView final : public ViewOf<TextBox, QLineEdit> {
public:
  TextBoxView(TextBox& box, Screen& screen, QWidget* form)
      : ViewOf(box, screen, new QLineEdit(form)) {
    if (box.MaxLength > 0)
      widget().setMaxLength(box.MaxLength);
    setColors(QPalette::Base, QPalette::Text);
    connect(&widget(), &QLineEdit::textEdited, this, [this](const QString& text) { type(text); });
    // A screen reader sets the text without an edit. Later, for that may end in a message box, and
    // the screen reader waits for its call's end.
    connect(&widget(), &QLineEdit::textChanged, this, [this] {
      const QString text = widget().text();
      if (!reporter().isQuiet() && element() && text != toQt(shown().Text))
        QMetaObject::invokeMethod(
            this, [this, text] { type(text); }, Qt::QueuedConnection);
    });
  }
  bool needsOutline() const override { return false; } // the caret marks it

protected:
  void syncKind() override {
    if (const QString text = toQt(shown().Text); widget().text() != text)
      widget().setText(text);
  }

private:
  void type(const QString& text) {
    reportUse([&](Forms& forms) { forms.typed(shown(), fromQt(text)); });
  }
};

// --- Text of several lines to read, with scroll bars both ways -----------------------------------

class TextAreaView final : public ViewOf<TextBox, QPlainTextEdit> {
public:
  TextAreaView(TextBox& box, Screen& screen, QWidget* form)
      : ViewOf(box, screen, new QPlainTextEdit(form)) {
    widget().setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    widget().setLineWrapMode(QPlainTextEdit::NoWrap);
    widget().setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    widget().setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    for (QScrollBar* bar : {widget().horizontalScrollBar(), widget().verticalScrollBar()})
      bar->setContextMenuPolicy(Qt::PreventContextMenu);
    setColors(QPalette::Base, QPalette::Text);
    watch(*widget().viewport());
    // An input method writes even here.
    connect(&widget(), &QPlainTextEdit::textChanged, this, [this] {
      if (element())
        sync();
    });
  }
  bool needsOutline() const override { return false; } // the caret marks it

protected:
  void syncKind() override {
    // The program's lines end in CR LF, Qt's in LF.
    const QString text = toQt(shown().Text).remove(QLatin1Char('\r'));
    if (widget().toPlainText() != text)
      widget().setPlainText(text);
  }
};

// --- Check box without a caption -----------------------------------------------------------------

class CheckBoxView final : public ViewOf<CheckBox, QCheckBox> {
public:
  CheckBoxView(CheckBox& box, Screen& screen, QWidget* form)
      : ViewOf(box, screen, new QCheckBox(form)) {
    setColors(QPalette::Base, QPalette::Text);
    connect(&widget(), &QCheckBox::clicked, this, [this] { click(); });
    // A screen reader toggles the box without a click, and waits for its call's end as with a text.
    connect(
        &widget(), &QCheckBox::toggled, this,
        [this] {
          if (element() && widget().isChecked() != (shown().Value != 0))
            click();
        },
        Qt::QueuedConnection);
  }

protected:
  void syncKind() override { widget().setChecked(shown().Value != 0); }

  // The style's box may be a little larger than the element; it must not be cut.
  QRect placeFor(const QRect& wanted) const override {
    const QStyle& style = *widget().style();
    const QSize drawn(style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &widget()),
                      style.pixelMetric(QStyle::PM_IndicatorHeight, nullptr, &widget()));
    QRect place(wanted.topLeft(), wanted.size().expandedTo(drawn));
    place.moveCenter(wanted.center());
    return place;
  }
};

// --- Drop-down list without typing ---------------------------------------------------------------

class DropListView final : public ViewOf<DropList, QComboBox> {
public:
  DropListView(DropList& list, Screen& screen, QWidget* form)
      : ViewOf(list, screen, new QComboBox(form)) {
    setColors(QPalette::Base, QPalette::Text);
    // A choice of the item that is chosen already counts too.
    connect(&widget(), &QComboBox::activated, this,
            [this](int index) { reportUse([&](Forms& forms) { forms.chosen(shown(), index); }); });
  }

protected:
  void syncKind() override {
    // While a window is open its lists only grow.
    const auto& items = shown().items();
    for (auto i = static_cast<std::size_t>(widget().count()); i < items.size(); ++i)
      widget().addItem(toQt(items[i]));
    if (widget().currentIndex() != shown().ListIndex())
      widget().setCurrentIndex(shown().ListIndex());
  }
  QString description() const override { return toQt(shown().Text()); }

  // The style's arrow is of one size: on a form shown small it must not take the text's room.
  QRect placeFor(const QRect& wanted) const override {
    constexpr int ArrowAndFrame = 27; // pixels
    const int needed = widget().fontMetrics().horizontalAdvance(description()) + ArrowAndFrame;
    return {wanted.topLeft(), wanted.size().expandedTo({needed, 0})};
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel)
      return ControlView::eventFilter(watched, event);
    // A turn of the wheel on the way past would choose an item; it is meant for the window.
    event->ignore();
    return true;
  }
};

// --- Button and its key --------------------------------------------------------------------------

class ButtonView final : public ViewOf<Button, QPushButton> {
public:
  ButtonView(Button& button, Screen& screen, QWidget* form)
      : ViewOf(button, screen, new QPushButton(form)) {
    setColors(QPalette::Button, QPalette::ButtonText);
    connect(&widget(), &QPushButton::clicked, this, [this] { click(); });
    if (button.Shortcut.empty())
      return;
    // The key belongs to the form: one of a hidden button would be dead.
    auto* const key = new QShortcut(QKeySequence(toQt(button.Shortcut)), form);
    connect(key, &QShortcut::activated, this,
            [this] { reportUse([this](Forms& forms) { forms.shortcutPressed(shown()); }); });
  }

protected:
  void syncKind() override {
    widget().setText(caption());
    QStyleOptionButton option;
    option.initFrom(&widget());
    const QStyle& style = *widget().style();
    const QRect room = style.subElementRect(QStyle::SE_PushButtonContents, &option, &widget());
    fitText(widget(), screen().fonts.fontFor(shown().TextFont, scale()), caption(), room.size());
  }
  QString caption() const override { return toQt(shown().Caption); }
};

// --- Menu entry of the frame ---------------------------------------------------------------------

class MenuEntryView final : public ElementView {
public:
  MenuEntryView(MenuEntry& entry, Screen& screen, QWidget& frame)
      : ElementView(entry, screen.reporter, &frame) {
    action_.setObjectName(toQt(entry.name()));
    QWidget* holder = static_cast<QMainWindow&>(frame).menuBar();
    if (entry.parent)
      holder = viewOf<MenuEntryView>(screen.views, *entry.parent).menu();
    holder->addAction(&action_);
    connect(&action_, &QAction::triggered, this, [this] {
      if (element())
        reporter().report([this](Forms& forms) { forms.clicked(elementAs<MenuEntry>()); });
    });
    if (!entry.WindowList)
      return;
    connect(menu(), &QMenu::aboutToShow, this, [this] { listWindows(); });
    // A screen reader looks into the menu while it is closed. Behind the change of windows.
    connect(
        screen.area, &QMdiArea::subWindowActivated, this, [this] { listWindows(); },
        Qt::QueuedConnection);
  }

  void sync() override {
    const auto& entry = elementAs<MenuEntry>();
    action_.setText(toQt(entry.Caption));
    action_.setEnabled(entry.Enabled);
    action_.setVisible(entry.Visible);
  }

private:
  // That of the entries below this one.
  QMenu* menu() {
    if (!action_.menu())
      action_.setMenu(new QMenu(static_cast<QWidget*>(parent())));
    return action_.menu();
  }

  // Puts the open child windows at the menu's foot, below a line.
  void listWindows() {
    delete windows_;
    windows_ = new QActionGroup(menu());
    auto* const line = new QAction(windows_);
    line->setSeparator(true);
    int number = 0;
    for (Window* window : reporter().forms().openWindows())
      if (window->windowKind() == WindowKind::Child)
        listWindow(*window, ++number);
    line->setVisible(number > 0);
    menu()->addActions(windows_->actions());
  }

  void listWindow(Window& window, int number) {
    const QString caption = toQt(window.Caption).replace(QLatin1String("&"), QLatin1String("&&"));
    auto* const action = new QAction(QStringLiteral("&%1 %2").arg(number).arg(caption), windows_);
    action->setCheckable(true);
    action->setChecked(&window == reporter().forms().activeChild());
    // A window that has closed meanwhile is passed over by the forms layer.
    connect(action, &QAction::triggered, this, [this, &window] {
      reporter().report([&](Forms& forms) { return forms.activated(window); });
    });
  }

  QAction action_{this};
  QActionGroup* windows_ = nullptr; // the open child windows, with the line above them
};

// --- Timer ---------------------------------------------------------------------------------------

class TimerView final : public ElementView {
public:
  TimerView(Timer& timer, Screen& screen, QWidget& window)
      : ElementView(timer, screen.reporter, &window) {
    connect(&clock_, &QTimer::timeout, this, [this] {
      reporter().report([this](Forms& forms) { forms.ticked(elementAs<Timer>()); });
    });
  }

  // A clock that runs already keeps its beat.
  void sync() override {
    const auto& timer = elementAs<Timer>();
    if (clock_.interval() != timer.Interval)
      clock_.setInterval(timer.Interval);
    if (!timer.Enabled)
      clock_.stop();
    else if (!clock_.isActive())
      clock_.start();
  }

  void detach() override {
    clock_.stop();
    ElementView::detach();
  }

private:
  QTimer clock_;
};

} // namespace

ElementView* makeView(Element& element, WindowView& window, Screen& screen) {
  switch (element.kind()) {
  case Kind::Picture:
    return makePictureView(static_cast<Picture&>(element), screen, &window.form());
  case Kind::Label:
    return new LabelView(static_cast<Label&>(element), screen, &window.form());
  case Kind::TextBox:
    if (static_cast<TextBox&>(element).MultiLine)
      return new TextAreaView(static_cast<TextBox&>(element), screen, &window.form());
    return new TextBoxView(static_cast<TextBox&>(element), screen, &window.form());
  case Kind::CheckBox:
    return new CheckBoxView(static_cast<CheckBox&>(element), screen, &window.form());
  case Kind::DropList:
    return new DropListView(static_cast<DropList&>(element), screen, &window.form());
  case Kind::Button:
    return new ButtonView(static_cast<Button&>(element), screen, &window.form());
  case Kind::MenuEntry:
    return new MenuEntryView(static_cast<MenuEntry&>(element), screen, window.widget());
  case Kind::Timer:
    return new TimerView(static_cast<Timer&>(element), screen, window.widget());
  case Kind::Window:
    break;
  }
  qFatal("%s stands on no window", element.name().c_str());
}

} // namespace forms::qt
