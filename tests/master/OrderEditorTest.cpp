// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/OrderEditor.h"

#include <functional>

#include "scoring/Examples.h"
#include "support/ScriptedBoxes.h"

namespace zova::testing {
namespace {

// "1 3 2 4 @0 7": the positions, the cursor's row, the box.
std::string StateOf(const OrderEditor& editor) {
  std::string state;
  for (const int position : editor.Positions()) state += std::to_string(position) + " ";
  return state + "@" + std::to_string(editor.CursorRow()) + " " + editor.EntryText();
}

TEST(OrderEditor, EveryCommand) {
  const auto type = [](OrderEditor& e, const char* text) { e.SetEntryText(text), e.Enter(); };
  const std::tuple<const char*, std::function<void(OrderEditor&)>, const char*> kCases[] = {
      {"what Check would refuse", [&](OrderEditor& e) { type(e, "-9a"), type(e, "0"); }, "9 0 2 4 @2 "},
      {"no number of 16 bits", [&](OrderEditor& e) { type(e, "32768"); }, "0 3 2 4 @1 "},
      {"the last row stays", [&](OrderEditor& e) { e.Enter(), e.Move(9), type(e, "5"), e.Click(7); }, "1 3 2 5 @3 "},
      {"no arrows over a text", [](OrderEditor& e) { e.SetEntryText("7"), e.Move(1); }, "1 3 2 4 @0 7"},
      {"a column", [](OrderEditor& e) { e.Click(1), e.SetEntryText("8"), e.Paste(" 2\r\n9 \r4\n\n"); }, "1 2 9 4 @1 "},
      {"Reset, lures last", [&](OrderEditor& e) { type(e, "4"), e.SetEntryText("3"), e.Reset(); }, "1 3 2 4 @0 "}};
  for (const auto& [why, act, state] : kCases) {
    ScriptedBoxes boxes;
    OrderEditor editor(boxes);
    editor.OpenSerial(MakeProject({.Items = 4, .PerCategory = 2, .Lures = true}), {});
    act(editor);
    EXPECT_EQ(StateOf(editor), state) << why;
  }
}

TEST(OrderEditor, FaultsOfPastesAndOfTheWhole) {
  ScriptedBoxes boxes;
  OrderEditor editor(boxes);
  editor.OpenGroups({"5", "x"}, {"5, Man", "x, 3"}, GroupOrder{2, 1});
  const auto expect = [&](const std::string& text, const std::string& details) {
    boxes.Expect({text, BoxAnswer::Ok, details, BoxIcon::Exclamation});
  };
  for (const char* text : {"1\n\n2", "1\n2,1", "1\n2;1", "1\n2\t", "1\r-2", "1\r\n32768", "1\n2.5\nb"}) {
    expect("Subject x has no position from 1 to 2.", "Line 2 of the pasted data.");
    editor.Paste(text);
    EXPECT_EQ(StateOf(editor), "2 1 @0 ") << text << ": whole or not at all";
  }
  expect("Subject 3 has no position from 1 to 2.", "Line 3 of the pasted data.");
  editor.Paste("1\n2\n3");
  // What stands in the box is taken first.
  for (const auto& [row, text, fault, state] : {std::tuple(0, "1", "Position 1 is used twice.", "1 1 @1 "),
                                                {0, "3", "Subject 5 has no position from 1 to 2.", "3 1 @0 "}}) {
    editor.Click(row);
    editor.SetEntryText(text);
    expect(fault, "");
    EXPECT_FALSE(editor.Check());
    EXPECT_EQ(StateOf(editor), state);
  }
  editor.SetEntryText("2");
  EXPECT_TRUE(editor.Check());
}

}  // namespace
}  // namespace zova::testing
