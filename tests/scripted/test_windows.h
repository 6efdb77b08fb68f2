// A frame and windows with one element of each kind, which write down every event.
#pragma once

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
  std::function<void()> adds(const std::string& event) {
    return [this, event] { add(event); };
  }
  // The events since the last look.
  std::string take() { return std::exchange(events, {}); }
};

// Its elements stand one below the other, in the tab order but for the label.
class TestWindow : public Window {
public:
  TestWindow(Forms& forms, WindowKind kind, const char* name, Log& log)
      : Window(forms, kind, name), log_(log) {
    place(0, 0, 6000, 6000);
    Caption = name;
    for (int placed = 0; Element * element : elements()) {
      element->place(0, 450 * placed, 900, 375);
      element->TabIndex = element == &lbl ? -1 : placed;
      element->AccessibleName = element->name();
      element->LostFocus = log.adds(element->name() + "_LostFocus");
      ++placed;
    }
    chk.Width = 195; // it answers on its mark alone
    txtA.Change = log.adds("txtA_Change");
    txtB.Change = log.adds("txtB_Change");
    chk.Click = log.adds("chk_Click");
    com.Click = log.adds("com_Click");
    btn.Click = log.adds("btn_Click");
    pic.Click = log.adds("pic_Click");
    lbl.Click = log.adds("lbl_Click");
    pic.MouseDown = [&log](MouseButton button) {
      log.add(button == MouseButton::Left ? "pic_Left" : "pic_Right");
    };
  }
  bool letClose = true; // what the closing check answers

  TextBox txtA{*this, "txtA"}, txtB{*this, "txtB"};
  CheckBox chk{*this, "chk"};
  DropList com{*this, "com"};
  Button btn{*this, "btn"};
  Picture pic{*this, "pic"};
  Label lbl{*this, "lbl"};

private:
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
};

// Its elements but menu and timer have no place to stand.
class FrameWindow final : public TestWindow {
public:
  FrameWindow(Forms& forms, Log& log) : TestWindow(forms, WindowKind::Frame, "frmMarco", log) {
    Maximized = true;
    mnu.WindowList = true;
    mnuHoja.Click = log.adds("mnuHoja_Click");
    tmr.Tick = log.adds("tmr_Tick");
    tmr.Interval = 3600000; // only the player's hand makes it tick
  }

  MenuEntry mnu{*this, "mnu"}, mnuHoja{*this, "mnuHoja", &mnu};
  Timer tmr{*this, "tmr"};
};

// The frame with two open child windows, the first one active with the focus on its first element.
class TestProgram : public testing::Test {
protected:
  TestProgram() {
    forms.startUp(frame);
    two.open();
    one.open();
    log.take();
  }
  ~TestProgram() override {
    log.on.clear();
    own.close();
    frame.close();
  }

  std::unique_ptr<Player> player = makePlayer();
  Log log;
  Forms forms{*player};
  FrameWindow frame{forms, log};
  TestWindow one{forms, WindowKind::Child, "frmUno", log};
  TestWindow two{forms, WindowKind::Child, "frmDos", log};
  TestWindow own{forms, WindowKind::Own, "frmPropia", log};
};

} // namespace scripted
