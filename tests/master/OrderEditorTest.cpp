// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/OrderEditor.h"

#include <functional>

#include "scoring/Examples.h"
#include "support/ScriptedBoxes.h"

namespace zova::testing {
namespace {

// "1 3 2 4 @0[0-1] 7": the positions, the cursor's row, several selected rows, the box.
std::string StateOf(const OrderEditor& editor) {
  std::string state;
  for (const int position : editor.Positions()) state += std::to_string(position) + " ";
  state += "@" + std::to_string(editor.CursorRow());
  if (const auto [first, last] = editor.Selection(); first != last) {
    state += "[" + std::to_string(first) + "-" + std::to_string(last) + "]";
  }
  return state + " " + editor.EntryText();
}

TEST(OrderEditor, EveryCommand) {
  using E = OrderEditor;
  const auto select = [](E& e, int from, int to) { e.Click(from), e.SelectTo(to); };
  const auto type = [](E& e, const char* text) { e.SetEntryText(text), e.Enter(); };
  const std::tuple<const char*, std::function<void(OrderEditor&)>, const char*> kCases[] = {
      {"what Check would refuse", [&](E& e) { type(e, "-9a"), type(e, "0"); }, "9 0 2 4 @2 "},
      {"no number of 16 bits", [&](E& e) { type(e, "32768"); }, "0 3 2 4 @1 "},
      {"the last row stays", [&](E& e) { e.Enter(), e.Move(9), type(e, "5"), e.Click(7); }, "1 3 2 5 @3 "},
      {"no arrows over a text", [](E& e) { e.SetEntryText("7"), e.Move(1); }, "1 3 2 4 @0 7"},
      {"a column", [](E& e) { e.Click(1), e.SetEntryText("8"), e.Paste(" 2\r\n9 \r4\n\n"); }, "1 2 9 4 @1 "},
      {"counts up", [&](E& e) { select(e, 2, 1), type(e, "7"); }, "1 7 8 4 @1[1-2] "},
      {"Delete", [&](E& e) { select(e, 3, 2), e.Delete(), e.Click(0), e.Delete(); }, "0 3 0 0 @0 "},
      {"paste at the selection", [&](E& e) { select(e, 3, 2), e.Paste("9\n8"); }, "1 3 9 8 @2[2-3] "},
      {"undo", [&](E& e) { type(e, "4"), e.Delete(), e.Reset(), e.Undo(), e.Undo(); }, "4 3 2 4 @1 "},
      {"redo, nothing twice", [&](E& e) { type(e, "4"), e.Reset(), e.Undo(), e.Undo(), e.Redo(), e.Redo(), e.Redo(); },
       "1 3 2 4 @0 "},
      {"what differs in one row", [&](E& e) { select(e, 0, 3), e.Paste("1\n2\n3\n4"), e.Undo(); }, "1 3 2 4 @1 "},
      {"a change ends redoing", [&](E& e) { type(e, "4"), e.Undo(), type(e, "2"), e.Redo(); }, "2 3 2 4 @1 "},
      {"Reset, lures last", [&](E& e) { type(e, "4"), e.SetEntryText("3"), e.Reset(); }, "1 3 2 4 @0 "}};
  for (const auto& [why, act, state] : kCases) {
    ScriptedBoxes boxes;
    OrderEditor editor(boxes);
    editor.OpenSerial(MakeProject({.Items = 4, .PerCategory = 2, .Lures = true}), {});
    act(editor);
    EXPECT_EQ(StateOf(editor), state) << why;
  }
}

TEST(OrderEditor, ProjectWithoutItems) {
  ScriptedBoxes boxes;
  OrderEditor editor(boxes);
  editor.OpenSerial({}, {});
  editor.SetEntryText("1");
  editor.Enter();
  editor.Delete();
  editor.Move(1);
  EXPECT_EQ(StateOf(editor), "@0 ");
  EXPECT_TRUE(editor.Check());
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
