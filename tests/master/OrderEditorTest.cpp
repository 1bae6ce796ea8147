// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/OrderEditor.h"

#include <functional>

#include "scoring/Examples.h"
#include "support/FakePlatform.h"

namespace zova::testing {
namespace {

// "1 3 2 4 @1[1-2] 7": the positions, the cursor's line, several selected lines, the box.
std::string StateOf(const OrderEditor& editor) {
  const TypedGrid& grid = editor.Cells();
  std::string state;
  for (const int position : editor.Positions()) state += std::to_string(position) + " ";
  state += "@" + std::to_string(grid.Cursor().Line);
  if (const GridBlock& block = grid.Selection(); !block.IsOneCell()) {
    state += "[" + std::to_string(block.FirstLine) + "-" + std::to_string(block.LastLine) + "]";
  }
  return state + " " + grid.EntryText();
}

TEST(OrderEditor, EveryCommand) {
  using G = TypedGrid;
  const auto select = [](G& g, int from, int to) { g.Click({from}), g.SelectTo({to}); };
  const auto type = [](G& g, const char* text) { g.SetEntryText(text), g.Enter(); };
  const std::tuple<const char*, std::function<void(G&, OrderEditor&)>, const char*> kCases[] = {
      {"what Check would refuse", [&](G& g, auto&) { type(g, "-9a"), type(g, "0"); }, "9 0 2 4 @3 "},
      {"no number of 16 bits", [&](G& g, auto&) { type(g, "32768"); }, "0 3 2 4 @2 "},
      {"the last row stays", [&](G& g, auto&) { g.Enter(), g.Move(9, 0), type(g, "5"), g.Click({8}); }, "1 3 2 5 @4 "},
      {"Tab stays in the first cell and in the last",
       [](G& g, auto&) {
         g.SetEntryText("7"), g.Step(-1), g.Step(1), g.Click({4}), g.ExtendSelection(-1, 0), g.Move(1, 0),
             g.SetEntryText("8"), g.Step(1);
       },
       "7 3 2 8 @4 "},
      {"a column", [](G& g, auto&) { g.Click({2}), g.SetEntryText("8"), g.Paste(" 2\r\n9 \r4\n \n"); }, "1 2 9 4 @2 "},
      {"counts up", [&](G& g, auto&) { select(g, 3, 2), type(g, "7"); }, "1 7 8 4 @2[2-3] "},
      {"counts to 16 bits", [&](G& g, auto&) { select(g, 1, 3), type(g, "32766"); }, "32766 32767 0 4 @3[1-3] "},
      {"Delete", [&](G& g, auto&) { select(g, 4, 3), g.DeleteKey(), g.Click({1}), g.DeleteKey(); }, "0 3 0 0 @1 "},
      {"undo", [&](G& g, auto& o) { type(g, "4"), g.DeleteKey(), o.Reset(), g.Undo(), g.Undo(); }, "4 3 2 4 @2 "},
      {"Reset, lures last", [&](G& g, auto& o) { type(g, "4"), g.SetEntryText("3"), o.Reset(); }, "1 3 2 4 @1 "}};
  for (const auto& [why, act, state] : kCases) {
    ScriptedBoxes boxes;
    CountingDesktop desktop;
    OrderEditor editor(boxes, desktop);
    editor.OpenSerial(MakeProject({.Items = 4, .PerCategory = 2, .Lures = true}), {});
    act(editor.Cells(), editor);
    EXPECT_EQ(StateOf(editor), state) << why;
  }
}

TEST(OrderEditor, ProjectWithoutItems) {
  ScriptedBoxes boxes;
  CountingDesktop desktop;
  OrderEditor editor(boxes, desktop);
  editor.OpenSerial({}, {});
  TypedGrid& grid = editor.Cells();
  grid.SetEntryText("1");
  EXPECT_TRUE(editor.PendingOrder().empty());
  grid.Enter();
  grid.DeleteKey();
  grid.Move(1, 0);
  grid.Step(1);
  EXPECT_EQ(StateOf(editor) + grid.Copy(), "@1 ");
  EXPECT_TRUE(editor.Check());
}

TEST(OrderEditor, FaultsOfPastesAndOfTheWhole) {
  ScriptedBoxes boxes;
  CountingDesktop desktop;
  OrderEditor editor(boxes, desktop);
  TypedGrid& grid = editor.Cells();
  editor.OpenGroups({"5", "x"}, {"5, Man", "x, 3"}, GroupOrder{2, 1});
  const auto expect = [&](const std::string& text, const std::string& details) {
    boxes.Expect({text, BoxAnswer::Ok, details, BoxIcon::Exclamation});
  };
  for (const char* text : {"1\n\n2", "1\n2,1", "1\n2;1", "1\n2,1\n3;4", "1\n2\t", "1\r-2", "1\r\n32768", "1\n2.5\nb"}) {
    expect("Subject x has no position from 1 to 2.", "Line 2 of the pasted data.");
    grid.Paste(text);
    EXPECT_EQ(StateOf(editor), "2 1 @1 ") << text << ": whole or not at all";
  }
  expect("Subject 3 has no position from 1 to 2.", "Line 3 of the pasted data.");
  grid.Paste("1\n2\n3");
  // What stands in the box is taken first.
  for (const auto& [row, text, fault, state] : {std::tuple(1, "1", "Position 1 is used twice.", "1 1 @2 "),
                                                {1, "3", "Subject 5 has no position from 1 to 2.", "3 1 @1 "}}) {
    grid.Click({row});
    grid.SetEntryText(text);
    expect(fault, "");
    EXPECT_FALSE(editor.Check());
    EXPECT_EQ(StateOf(editor), state);
  }
  grid.SetEntryText("2");
  EXPECT_TRUE(editor.Check());
}

}  // namespace
}  // namespace zova::testing
