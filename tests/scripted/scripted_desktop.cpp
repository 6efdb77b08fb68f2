#include "scripted/scripted_desktop.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace scripted {

using namespace forms;

// --- What the program asks -----------------------------------------------------------------------

Answer ScriptedDesktop::messageBox(const MessageBox& box) {
  const Expected expected = next(box);
  if (expected.meanwhile)
    expected.meanwhile();
  return expected.answer;
}

std::optional<std::string> ScriptedDesktop::fileDialog(const FileDialog& dialog) {
  const Expected expected = next(dialog);
  if (expected.meanwhile)
    expected.meanwhile();
  return expected.path;
}

void ScriptedDesktop::waitModal(Window& window) {
  if (const Expected expected = next(window.name()); expected.meanwhile)
    expected.meanwhile();
  EXPECT_FALSE(window.isOpen()) << "The modal window was not closed.";
}

std::optional<PictureSize> ScriptedDesktop::pictureSize(const std::string& path) {
  const std::filesystem::path file(path);
  EXPECT_EQ(file.parent_path().parent_path(), programFolder());
  const std::string name = file.filename().string();
  if (allPicturesMissing || missingPictures.contains(name))
    return std::nullopt;
  const int board = ((name[0] - '0') * 1180 + 14) / 15; // of "6x6.jpg"
  const int side = name[1] == 'x' ? board : name.ends_with(".ico") ? 32 : 62;
  return PictureSize{side, side};
}

void ScriptedDesktop::windowClosed(Window& window) {
  if (focus_ && &focus_->window() == &window)
    focus_ = nullptr;
}

void ScriptedDesktop::changed(Element& element) {
  EXPECT_TRUE(element.window().isOpen()) << element.name();
}

void ScriptedDesktop::removed(Element& element) {
  changed(element);
  if (focus_ == &element)
    focus_ = nullptr;
}

void ScriptedDesktop::focusAsked(Element& element) {
  changed(element);
  focus_ = element.kind() == Kind::Window ? nullptr : &element;
}

// --- What the person does ------------------------------------------------------------------------

bool ScriptedDesktop::press(Element& element) {
  const Window& home = element.window();
  const bool let = forms_->pressed(element, MouseButton::Left);
  const auto& standing = home.elements();
  return let && std::find(standing.begin(), standing.end(), &element) != standing.end() &&
         element.isReachable();
}

bool ScriptedDesktop::doClick(Element& element) {
  if (auto* const picture = dynamic_cast<Picture*>(&element))
    return doClickOn(*picture, static_cast<float>(picture->Width) / 2,
                     static_cast<float>(picture->Height) / 2);
  const bool let = press(element);
  if (let)
    forms_->clicked(element);
  return let;
}

void ScriptedDesktop::doRightClick(Element& element) {
  forms_->pressed(element, MouseButton::Right);
}

bool ScriptedDesktop::doClickOn(Picture& picture, float X, float Y) {
  forms_->moved(picture, X, Y);
  const bool let = press(picture);
  if (let)
    forms_->clicked(picture);
  return let;
}

void ScriptedDesktop::doMoveOver(Picture& picture, float X, float Y) {
  forms_->moved(picture, X, Y);
}

void ScriptedDesktop::doType(TextBox& box, std::string_view text) {
  if (!press(box))
    return;
  forms_->typed(box, "");
  for (std::size_t end = 0, start = 0; start < text.size(); start = end) {
    do
      ++end;
    while (end < text.size() && (text[end] & 0xC0) == 0x80); // the character has more bytes
    forms_->typed(box, box.Text.get() + std::string(text.substr(start, end - start)));
  }
}

void ScriptedDesktop::doChoose(DropList& list, int item) {
  if (press(list))
    forms_->chosen(list, item);
}

Window& ScriptedDesktop::keyboardWindow() const {
  return focus_ ? focus_->window() : *forms_->activeChild();
}

void ScriptedDesktop::doTab(bool forwards) {
  forms_->tabbed(keyboardWindow(), forwards);
}

void ScriptedDesktop::doKey(Key key, int digit) {
  forms_->keyPressed(keyboardWindow(), key, digit);
}

} // namespace scripted
