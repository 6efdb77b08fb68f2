// A frame and windows with one element of each kind, which write down every event.
#pragma once

#include <map>
#include <utility>

#include "forms/forms.h"
#include "forms/grid_picture.h"
#include "forms/picture_array.h"
#include "scripted/player.h"

namespace scripted {

// All events of one test: "txtA_LostFocus btn_Click". Those of a window carry its name.
struct Log {
  std::string events;
  // What a test wants done inside an event.
  std::map<std::string, std::function<void()>> on;

  void add(const std::string& event) {
    events += (events.empty() ? "" : " ") + event;
    if (const auto handler = on[event])
      handler();
  }
  // The events since the last look.
  std::string take() { return std::exchange(events, {}); }
};

class TestWindow : public forms::Window {
public:
  TestWindow(forms::Forms& forms, forms::WindowKind kind, const char* name, Log& log)
      : Window(forms, kind, name), log_(log) {
    Width = Height = 6000;
    forms::Element* const inTabOrder[] = {&txtA, &txtB, &chk, &com, &btn, &pic};
    for (forms::Element* element : inTabOrder) {
      element->TabIndex = placed_;
      put(*element);
      element->LostFocus = [this, element] { log_.add(element->name() + "_LostFocus"); };
    }
    put(picUnidad.pattern);
    put(lbl);
    btn.Shortcut = "Ctrl+Shift+D";
    txtA.Change = [this] { log_.add("txtA_Change"); };
    txtB.Change = [this] { log_.add("txtB_Change"); };
    const auto logClick = [this](auto&... elements) {
      ((elements.Click = [this, &elements] { log_.add(elements.name() + "_Click"); }), ...);
    };
    logClick(chk, com, btn, lbl, pic);
    pic.MouseDown = [this](forms::MouseButton button) {
      log_.add(button == forms::MouseButton::Left ? "pic_Left" : "pic_Right");
    };
    picUnidad.Click = [this](int Index) { log_.add("picUnidad_Click" + std::to_string(Index)); };
    made();
  }
  bool letClose = true; // what the closing check answers

  forms::TextBox txtA{*this, "txtA"}, txtB{*this, "txtB"};
  forms::CheckBox chk{*this, "chk"};
  forms::DropList com{*this, "com"};
  forms::Button btn{*this, "btn"};
  forms::GridPicture pic{*this, "pic"};
  forms::Label lbl{*this, "lbl"};
  forms::PictureArray picUnidad{*this, "picUnidad"};

private:
  // One below the other.
  void put(forms::Element& element) {
    element.Top = 450 * placed_++;
    element.Width = 900;
    element.Height = 375;
  }

  void Form_Load() override {
    com.AddItem("uno");
    com.AddItem("dos");
    log_.add(name() + "_Load");
  }
  bool Form_QueryUnload() override {
    log_.add(name() + "_QueryUnload");
    return letClose;
  }
  void Form_Unload() override { log_.add(name() + "_Unload"); }
  void Form_Deactivate() override { log_.add(name() + "_Deactivate"); }

  Log& log_;
  int placed_ = 0;
};

// Its elements but menu and timer have no place to stand.
class FrameWindow final : public TestWindow {
public:
  FrameWindow(forms::Forms& forms, Log& log)
      : TestWindow(forms, forms::WindowKind::Frame, "frmMarco", log) {
    Maximized = true;
    mnu.Caption = std::string("&Menú");
    mnuHoja.Caption = std::string("&Hoja");
    mnuHoja.Click = [&log] { log.add("mnuHoja_Click"); };
    tmr.Tick = [&log] { log.add("tmr_Tick"); };
    made();
  }

  forms::MenuEntry mnu{*this, "mnu"}, mnuHoja{*this, "mnuHoja", &mnu};
  forms::Timer tmr{*this, "tmr"};
};

// The frame with two open child windows, the first one active with the focus on its first element.
struct TestProgram {
  explicit TestProgram(forms::Desktop& desktop) : forms(desktop) {
    forms.startUp(frame);
    two.open();
    one.open();
    log.take();
  }
  ~TestProgram() {
    log.on.clear();
    forms.afterEvent = {};
    TestWindow* const windows[] = {&one, &two, &own, &frame};
    for (TestWindow* window : windows) {
      window->letClose = true;
      window->close();
    }
  }
  TestProgram(const TestProgram&) = delete;
  TestProgram& operator=(const TestProgram&) = delete;

  Log log;
  forms::Forms forms;
  FrameWindow frame{forms, log};
  TestWindow one{forms, forms::WindowKind::Child, "frmUno", log};
  TestWindow two{forms, forms::WindowKind::Child, "frmDos", log};
  TestWindow own{forms, forms::WindowKind::Own, "frmPropia", log};
};

} // namespace scripted
