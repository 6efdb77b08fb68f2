// The pointer as the system reports it: Qt finds out which element gets it.
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

#include "desktop/qt/qt_player.h"
#include "scripted/test_windows.h"

using namespace scripted;

namespace {

class Pointer : public testing::Test {
protected:
  QPoint middle(const forms::Element& element) {
    QWidget& widget = player.widget(element);
    return widget.mapTo(widget.window(), widget.rect().center());
  }
  QWindow* window() { return player.widget(program.frame).windowHandle(); }
  void drag(const forms::Element& from, const forms::Element& to) {
    QTest::mousePress(window(), Qt::LeftButton, {}, middle(from));
    QTest::mouseMove(window(), middle(to));
    QTest::mouseRelease(window(), Qt::LeftButton, {}, middle(to));
  }
  void doubleClick(const forms::Element& element) {
    QTest::mouseDClick(window(), Qt::LeftButton, {}, middle(element));
  }
  // In front of the picture.
  void loadUnit(int i) {
    EXPECT_TRUE(one.picUnidad.Load(i));
    one.picUnidad(i)->Top = one.pic.Top.get();
    one.picUnidad(i)->ZOrder();
    one.picUnidad(i)->Visible = true;
  }

  QtPlayer player;
  TestProgram program{player};
  Log& log = program.log;
  TestWindow& one = program.one;
};

TEST_F(Pointer, ClicksWhereItIsPressedAndLetGo) {
  one.chk.Width = 195;
  one.pic.MouseMove = [&](float X, float Y) {
    log.add(std::to_string(static_cast<int>(X)) + "," + std::to_string(static_cast<int>(Y)));
  };
  const forms::Element* const elements[] = {&one.pic, &one.lbl, &one.btn, &one.chk};
  for (const auto* from : elements)
    for (const auto* to : elements) {
      drag(*from, *to);
      EXPECT_EQ(log.take().find("_Click") != std::string::npos, from == to)
          << from->name() << " " << to->name();
    }
  EXPECT_TRUE(one.txtA.SetFocus());
  drag(one.pic, one.lbl);
  EXPECT_EQ(log.take(), "chk_LostFocus 435,180 txtA_LostFocus pic_Left 435,1080");
  for (const auto* element : elements)
    doubleClick(*element);
  EXPECT_EQ(log.take(), "435,180 pic_Left pic_Click pic_Left pic_Click lbl_Click lbl_Click "
                        "pic_LostFocus btn_Click btn_Click btn_LostFocus chk_Click chk_Click");
}

TEST_F(Pointer, LeavesAnElementThatVanishesUnderItWithoutAClickOnAnother) {
  one.pic.LostFocus = {};
  loadUnit(1);
  one.picUnidad.MouseDown = [&](int i, forms::MouseButton) {
    forms::passOver(one.picUnidad.Unload(i));
  };
  drag(*one.picUnidad(1), one.pic);
  EXPECT_EQ(log.take(), "txtA_LostFocus");
  one.picUnidad.MouseDown = {};
  log.on["picUnidad_Click2"] = [&] { forms::passOver(one.picUnidad.Unload(2)); };
  loadUnit(2);
  doubleClick(*one.picUnidad(2));
  EXPECT_EQ(log.take(), "picUnidad_Click2 pic_Left pic_Click");
}

TEST_F(Pointer, ClosesNoWindowBehindABox) {
  log.on["btn_Click"] = [&] {
    EXPECT_EQ(program.forms.messageBox("¿Sí?", forms::BoxStyle::InformationYesNo),
              forms::Answer::Yes);
    program.forms.fileDialog({true, "Guardar", "", "", ""});
    program.own.showModal();
  };
  const auto close = [&] {
    EXPECT_FALSE(player.closeWindow(program.frame) || player.closeWindow(one));
  };
  player.expectBox("¿Sí?", forms::Answer::Yes, close);
  player.expectFile("Guardar", std::nullopt, close);
  player.expectModal("frmPropia", [&] { close(), player.closeWindow(program.own); });
  player.click(one.btn);
  EXPECT_EQ(log.take(),
            "txtA_LostFocus btn_Click frmPropia_Load frmPropia_QueryUnload frmPropia_Unload");
}

} // namespace
