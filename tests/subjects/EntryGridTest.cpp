// SPDX-License-Identifier: GPL-3.0-or-later
//
// The entry grid's rules: which key changes what, where it leads, and what is said.

#include "subjects/EntryDesk.h"

using namespace zova;
using namespace zova::testing;

namespace {

const BoxTable kGridBoxes = {
    {"item", Told("The entered number was out of item range.")},
    {"minute", Told("The entered number was out of minute range.")},
    {"rating", Told("The entered number was out of the rating range.")},
    {"no minutes", Told("You cannot enter minutes for this project.")},
    {"no ratings", Told("You cannot enter ratings for this project.")},
    {"no block", Told("The parameters do not allow ratings to be entered for this project.")},
    {"fill", Told("You cannot fill the 'Recalled' column with all the same number.")},
    {"cell", Told("You cannot enter ratings for this test.")},
    {"block", Told("You cannot enter ratings on this test.")},
    {"only minutes.", Told("You can only select items in the 'Minute' column for this.")},
    {"only minutes", Told("You can only select items in the 'Minute' column for this")},
    {"last line", Told("The 'next blank space' option has been turned off because you reached the last line.",
                       BoxIcon::Information)},
    {"loss",
     {"Doing this will delete item and minute data from the bottom of the list.  Do you wish to continue anyway?",
      BoxAnswer::No, "", BoxIcon::Question, BoxButtons::YesNo, BoxAnswer::No}},
    {"over 10", Warned("You are about to permanently delete over 10 lines of data.  Are you sure you want to do this?",
                       BoxAnswer::No)}};

}  // namespace

TEST(EntryGrid, TakesOneCell) {
  ExpectAll(kGridBoxes,
            {"mr1; ; 3e4e5e; 3/4/5; @2,1*", "mr1; ; 5e; 5; @1,2*", "mr1; 2; 6e; 2; @1,1 b; item",
             "mr1; 2; 65537e; 2; @1,1 b; item", "mr1; 2; 99999999999999999999e; 2; @1,1 b; item", "mr1; 2; e; 2; @1,1",
             "mr1; ; a3.,e; 3; @1,2*", "mr1; 2/4; 2e; 2/4; @1,2", "mr1; 2/4; 00e; 0/4; @1,2*", "mr1; ; r9e; 0/9; @1,3*",
             "mr1; ; rr7e; 0/0/7; @2,1*", "mr2; ; rr1e; ; @1,3 b; cell", "mr1; ; r10e; ; @1,2 b; minute",
             "mr1; ; rr8e; ; @1,3 b; rating", "mr3; ; rr7e; 0/0/7; @2,1*", "r1; ; r1e; ; @1,2 b; no minutes",
             "m1; ; rr1e; ; @1,3 b; no ratings"});
}

TEST(EntryGrid, MovesOn) {
  ExpectAll(kGridBoxes, {"mrS1; ; 3e; 3; @1,3*", "mrS2; ; 3e; 3; @2,1*", "mrS3; ; 3e; 3; @2,1*", "mS1; ; 3e; 3; @2,1*",
                         "r1; ; 3e; 3; @1,3*", "1; ; 3e; 3; @2,1*", "mr2; ; r3e; 0/3; @2,1*", "mr3; ; r3e; 0/3; @1,3*",
                         "1; ; dddd3e; 0 0 0 0 3; @5,1*", "m1; ; ddddr3e; 0 0 0 0 0/3; @5,1*",
                         "mr1; ; ddddrr3e; 0 0 0 0 0/0/3; @5,3*", "mr1; ; 3e; 3; @1,2*"});
}

TEST(EntryGrid, LooksForTheNextBlank) {
  ExpectAll(
      kGridBoxes,
      {"mrB1; ; 3e; 3; @1,2*", "mrB1; 0/0/5; 3e4e; 3/4/5; @2,1*", "mrB1; 0/4/5 1/1/1 1/1; 3e; 3/4/5 1/1/1 1/1; @3,3*",
       "mrB2; 0/4 1/1 1/1; 3e; 3/4 1/1 1/1; @4,1*", "mrB3; 0/4; 3e; 3/4; @1,3*", "rB1; 0/0/5 1; 3e; 3/0/5 1; @2,3*",
       "mrBS1; ; 3e; 3; @1,2*", "mrB1; ; d1e; 0 1; @2,2*", "B1; 0 1 1 1; 3e2e; 3 1 1 1 2; @5,1*; last line",
       "mrB1; 0/4/5 1/1/1 1/1/1 1/1/1; 3e2e; 3/4/5 1/1/1 1/1/1 1/1/1 2; @5,2*; last line",
       "mrB1; ; dddd2e; 0 0 0 0 2; @5,1*; last line", "mrB1; ; 6e; ; @1,1 b; item"});
}

TEST(EntryGrid, MovesAndSelects) {
  ExpectAll(
      kGridBoxes,
      {"mr1; ; ul; ; @1,1",     "1; ; ddddddrrr; ; @5,3", "1; ; rrddlu; ; @2,2",      "1; ; 5dr; ; @1,1 '5'",
       "1; ; 5t3T; 5 3; @1,1*", "mr1; ; 4c; 4; @5,3*",    "1; ; DD; ; @3,1-1,1",      "1; ; ddrrUUULLLL; ; @1,1-3,3",
       "1; ; DDDU; ; @3,1-1,1", "1; ; DDd; ; @4,1",       "1; ; drDRl; ; @3,2",       "mr1; ; tttt; ; @2,2",
       "mr2; ; tttt; ; @3,1",   "mr3; ; tttt; ; @2,2",    "r1; ; ttt; ; @2,3",        "1; ; rt; ; @2,1",
       "1; ; rT; ; @1,1",       "mr2; ; ddT; ; @2,2",     "mr1; ; Ttddddrrt; ; @5,3", "1; ; c; ; @5,3"});
}

TEST(EntryGrid, FillsABlockOfOneColumn) {
  ExpectAll(kGridBoxes, {"mr1; 1/1 2 3 4; rDD4e; 1/4 2/4 3/4 4; @3,2-1,2*", "mr1; 1/1 2/2; rD0e; 1 2; @2,2-1,2*",
                         "mr1; 1/4 2/4; rD4e; 1/4 2/4; @2,2-1,2", "mrB1; ; ddrrU7e; 0 0/0/7 0/0/7; @2,3-3,3*",
                         "mr2; ; rrD1e; ; @2,3-1,3 b; block", "mr3; ; rrD1e; ; @2,3-1,3 b; block",
                         "r1; ; rD1e; ; @2,2-1,2 b; no minutes", "m1; ; rrD8e; ; @2,3-1,3 b; no block",
                         "mr1; ; rD10e; ; @2,2-1,2 b; minute", "mr1; ; rrD8e; ; @2,3-1,3 b; rating",
                         "mr1; ; D1e; ; @2,1-1,1 b; fill", "mr1; ; De; ; @2,1-1,1", "mr1; ; Re; ; @1,2-1,1 b",
                         "mr1; ; RD4e; ; @2,2-1,1 '4' b"});
}

TEST(EntryGrid, InsertsDeletesAndBumps) {
  ExpectAll(kGridBoxes, {"mr1; 1/1/1 2/2 3; dri; 1/1/1 0 2/2 3; @2,2*",
                         "mr1; 1 2 3; dDDi; 1 0 2 3; @2,1*",
                         "mr1; 1 2; ddi; 1 2; @3,1",
                         "mr1; 1 2 3 4 5/1; i; 1 2 3 4 5/1; @1,1; loss?N",
                         "mr1; 1 2 3 4 5/1; ddddi; 1 2 3 4; @5,1*; loss?Y",
                         "mr1; 1/1 2 3/3 4; drx; 1/1 3/3 4; @2,2*",
                         "mr1; 1 2 3 4 5; ddUUx; 4 5; @1,1*",
                         "mr1; 1; ddDx; 1; @3,1",
                         "l1; 1; DDDDDDDDDx; ; @1,1*",
                         "l1; 1; DDDDDDDDDDx; 1; @11,1-1,1; over 10?N",
                         "l1; 1; DDDDDDDDDDx; ; @1,1*; over 10?Y",
                         "m1; 1/9 2/1 3; rDD+; 1/9 2/2 3/1; @3,2-1,2*",
                         "m1; 1/9 2/1 3; rDD-; 1/8 2 3; @3,2-1,2*",
                         "m1; 1; r-; 1; @1,2*",
                         "m1; 1/32767 2; rD+; 1/32767 2/1; @2,2-1,2*",
                         "m1; 1/32767; r-; 1/32766; @1,2*",
                         "m1; 1 2 3 4 5; ddddx; 1 2 3 4; @5,1*",
                         "m1; 1/1; +; 1/1; @1,1 b; only minutes.",
                         "m1; 1/1; -; 1/1; @1,1 b; only minutes",
                         "m1; 1/1; R+; 1/1; @1,2-1,1 b; only minutes.",
                         "r1; 1; r+; 1; @1,2"});
}

TEST(EntryGrid, UndoesAndRedoesWhereItHappened) {
  ExpectAll(kGridBoxes, {"mr1; ; 3e4ez; 3; @1,2*", "mr1; ; 3e4ezz; ; @1,1*", "mr1; ; 3e4ezzyyy; 3/4; @1,2*",
                         "mr1; ; 3ez5ey; 5; @1,2*", "mr1; 3; zy; 3; @1,1", "mr1; ; 3ez0ey; 3; @1,1*",
                         "mr1; 1/2; 2ez2e3ez; 2/2; @1,2*", "mr1; 1 2 3 4 5; dDxz; 1 2 3 4 5; @2,1*",
                         "mr1; ; 3en4ezz; ; @1,1*", "mr1; ; 3en4ezzyy; 4; @1,1*"});
}

TEST(EntryGrid, CopiesAndPastesWhole) {
  ScriptedBoxes boxes;
  EntryDesk desk(boxes, "mr1", "1/2 0 5");
  desk.Press("ddrUUL");
  const std::string copied = desk.Grid.Copy();
  EXPECT_EQ(copied, "1\t2\n\t\n5\t\n");
  desk.Grid.Paste("");
  EXPECT_EQ(desk.GridState(), "@1,1-3,2");
  desk.Press("drL");
  desk.Grid.Paste(copied);
  desk.Grid.FetchChangedLines();
  EXPECT_EQ(desk.GridState(), "@2,1-2,2*");
  EXPECT_EQ(desk.Grid.Copy(), "1\t2\n");
  desk.Press("zurr");
  desk.Grid.Paste("7\r\n6");
  EXPECT_EQ(desk.Record.Lists, desk.Lists(1, "1/2/7 0/0/6 5"));
}

TEST(EntryGrid, TakesAPasteWholeOrNamesItsFirstFault) {
  const std::string all = "1/1/1 1/1/1 1/1/1 1/1/1 1/1/1 ";
  const std::string five = "1/1/1 2/1/1 3/1/1 4/1/1 5/1/1 ";
  const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
      {"mr1", "", "\r\n", all},
      {"mr1", "dddr", "1\t2\r\n3\t4\r\n", "1/1/1 1/1/1 1/1/1 1/1/2 1/3/4 "},
      {"mr1", "", "1;2\r 3 ; 04\r", "1/2/1 3/4/1 1/1/1 1/1/1 1/1/1 "},
      {"mr1", "d", "\r\n1,,7\r\r,9\n", "1/1/1 0/1/1 1/0/7 0/1/1 0/9/1 "},
      {"mr1", "d", "2\n ", "1/1/1 2/1/1 0/1/1 1/1/1 1/1/1 "},
      {"mr1", "", "1\n2\n3\n4\n5\n\n", five},
      {"mr1", "", "1\n2\n3\n4\n5\n\n6", "6 item"},
      {"mr1", "ddddr", "1\n1", "2 minute"},
      {"mr1", "", "1\t9\n1\t10\n6", "2 minute"},
      {"mr1", "", "1\t2\t3\t", "1 rating"},
      {"mr2", "r", "1\t\n\n1\t3", "3 block"},
      {"1", "", "1\t\t\n2\t0", "2 no minutes"},
      {"1", "", "1\t\t1", "1 no block"}};
  const auto paste = [&](const std::string& setup, const std::string& keys, const std::string& text,
                         const std::string& expected) {
    SCOPED_TRACE(text);
    ScriptedBoxes boxes;
    const bool isFault = !expected.ends_with(' ');
    if (isFault) {
      ExpectedBox box = kGridBoxes.at(expected.substr(2));
      box.Details = "Line " + expected.substr(0, 1) + " of the pasted data.";
      boxes.Expect(box);
    }
    EntryDesk desk(boxes, setup, all);
    desk.Press(keys);
    desk.Grid.Paste(text);
    std::string shown;
    for (int line = 1; line <= 5; ++line) {
      const Recall& recall = desk.Record.Lists.At(desk.Grid.Page(), line);
      shown +=
          std::to_string(recall.Item) + "/" + std::to_string(recall.Minute) + "/" + std::to_string(recall.Rating) + " ";
    }
    EXPECT_EQ(shown, isFault ? all : expected);
    EXPECT_EQ(desk.Fakes.Pointer.Beeps, isFault ? 1 : 0);
  };
  for (const auto& [setup, keys, text, expected] : cases) paste(setup, keys, text, expected);
  for (const char* text : {"-1", "-0", "+1", "1.0", "1x", "1 2", "\"1\"", "65537", "4294967297", "1,5;1", "1;5\t1"})
    paste("mr1", "", text, "1 item");
}

TEST(EntryGrid, NamesWhatAnInsertionPushesOff) {
  const std::string kinds[] = {"rating",          "minute",          "minute and rating",      "item",
                               "item and rating", "item and minute", "item, minute and rating"};
  RecallLists lists(2, 5);
  EXPECT_EQ(InsertionLossQuestion(lists, 2), "");
  for (int bits = 1; bits < 8; ++bits) {
    for (int column : {1, 2, 3}) SetCellValue(lists.At(2, 5), column, static_cast<std::int16_t>(bits & (8 >> column)));
    EXPECT_EQ(InsertionLossQuestion(lists, 2),
              "Doing this will delete " + kinds[bits - 1] +
                  " data from the bottom of the list.  Do you wish to continue anyway?");
  }
}

// What the list shows for a text, which of its lines is marked, then what Enter leaves: the items, the cursor, the box.
TEST(EntryGrid, TakesWordsInTheColumnOfItems) {
  WordList words;
  for (const char* text : {"pear", "apple", "applet", "grape", "4 corners"}) words.Words.push_back({text, ""});
  const auto noWord = [](const char* text, const char* details) {
    return ExpectedBox{std::string("'") + text + "' is not on the word list.", BoxAnswer::Ok, details,
                       BoxIcon::Exclamation};
  };
  struct Case {
    const char* Text;
    const char* Keys;  // v down, ^ up, x Escape
    const char* Listed;
    const char* State;
    std::vector<ExpectedBox> Boxes = {};
  };
  const Case kCases[] = {
      {"apple", "", "2 3 @0", "2 @2,1*"},
      {"APP", "", "2 3 @0", "2 @2,1*"},
      {"APP", "v", "2 3 @1", "3 @2,1*"},
      {"app", "vvv^^^", "2 3 @0", "2 @2,1*"},
      {"rap", "", "4 @0", "4 @2,1*"},
      {"ap", "", "2 3 4 @0", "2 @2,1*"},
      {"p", "x", " @-1", "1 @2,1*"},
      {"paer", "", "1 @-1", "@1,1 'paer' b", {noWord("paer", "Nearest: 1 pear.")}},
      {"paer", "v", "1 @0", "1 @2,1*"},
      {"ple", "", "2 3 @-1", "@1,1 'ple' b", {noWord("ple", "")}},
      {"xyz", "", " @-1", "@1,1 'xyz' b", {noWord("xyz", "")}},
      {"co", "", "5 @0", "5 @2,1*"},
      {"4", "", " @-1", "4 @2,1*"},
      {"4c", "", " @-1", "4 @2,1*"},  // as ever, a number drops what is no digit
      {"-2", "", " @-1", "2 @2,1*"},  // likewise
      {"9", "", " @-1", "@1,1 b", {Told("The entered number was out of item range.")}},
  };
  for (const Case& c : kCases) {
    ScriptedBoxes boxes;
    for (const ExpectedBox& box : c.Boxes) boxes.Expect(box);
    EntryDesk desk(boxes, "1", "");
    desk.Tools.SetWords(words);
    desk.Grid.SetEntryText(c.Text);
    for (const char* key = c.Keys; *key != '\0'; ++key)
      *key == 'x' ? desk.Grid.Escape() : desk.Grid.Move(*key == 'v' ? 1 : -1, 0);
    std::string listed;
    for (const int item : desk.Tools.WordsForBox().Listed()) listed += std::to_string(item) + " ";
    EXPECT_EQ(
        (listed.empty() ? " " : listed) + "@" + std::to_string(listed.empty() ? -1 : desk.Tools.WordsForBox().Line()),
        c.Listed)
        << c.Text << c.Keys;
    desk.Grid.Enter();
    EXPECT_EQ((desk.Grid.Text({1, 1}).empty() ? "" : desk.Grid.Text({1, 1}) + " ") + desk.GridState(), c.State)
        << c.Text << c.Keys;
  }
  ScriptedBoxes boxes{
      {"'plum' is not on the word list.", BoxAnswer::Ok, "Line 2 of the pasted data."},
      {"Duplicate entry found! Item # 2 was located in positions 2 and 3 of test 1.  Item in position 3 has "
       "been deleted.  Please edit the raw data.  You will be given a chance to review the data.",
       BoxAnswer::Ok, "2 apple."}};
  EntryDesk desk(boxes, "11", "");
  desk.Tools.SetWords(words);
  desk.Grid.Paste("pear\nplum\n");
  desk.Grid.Paste("Pear\nAPPLE\n2\n");
  EXPECT_EQ(desk.Grid.ShownText({2, 1}), "2 apple");
  EXPECT_EQ(desk.Grid.Copy(), "1\n");
  desk.Grid.Click({1, 2});
  desk.Grid.SetEntryText("pear");  // words only stand in the first column
  EXPECT_EQ(desk.Grid.EntryText(), "");
  desk.Press("F");
}
