// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/WordListEditor.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "support/FakePlatform.h"
#include "support/Scratch.h"
#include "words/WordCompletion.h"

namespace zova::testing {
namespace {

// Two categories of two items; the second of each is a lure. It has a backup directory.
ProjectParameters LureProject() {
  ProjectParameters project;
  project.ItemCount = 4;
  project.Categorized = 1;
  project.CategoryCount = 2;
  project.ItemsPerCategory = 2;
  project.FalseMemory = 1;
  project.Abbreviation = "AB";
  project.PrimaryDir = "C:\\Data";
  project.BackupDir = "D:\\Backup";
  return project;
}

struct Lab : Scratch {
  Lab() { MakeDirectory("C:/Data"), MakeDirectory("D:/Backup"); }
  // "rose/plants tree/plants cat/ dog/ @2,1": the lines, the cursor.
  std::string State() {
    std::string state;
    for (const Word& word : Editor.List().Words) state += word.Text + "/" + word.Category + " ";
    const GridCell cursor = Editor.Cells().Cursor();
    return state + "@" + std::to_string(cursor.Line) + "," + std::to_string(cursor.Column);
  }
  void OpenFile(const std::string& bytes) {
    Put("C:/list.csv", bytes);
    Fakes.Dialogs.Answers = {"C:\\list.csv"};
    Editor.ChooseFile();
  }

  FakePlatform Fakes;
  Disk Files = MakeDisk();
  ProjectParameters Project = LureProject();
  WordListEditor Editor{Fakes.With(Files)};
};

TEST(WordListEditor, TakesTypedPastedAndOpenedWords) {
  using L = Lab;
  const auto type = [](L& l, const char* text) { l.Editor.Cells().SetEntryText(text), l.Editor.Cells().Enter(); };
  const auto paste = [](L& l, const char* text) { l.Editor.Cells().Paste(text); };
  const ExpectedBox fourItems = {"The project has no more than 4 items.", BoxAnswer::Ok, "Line 3 of the pasted data."};
  const std::tuple<std::function<void(L&)>, const char*, std::vector<ExpectedBox>> kCases[] = {
      {[&](L& l) { type(l, "  ice cream "), type(l, "crème"); }, "ice cream/ crème/ / / @3,1", {}},
      {[&](L& l) {
         l.Editor.Cells().Click({1, 2}), l.Editor.Cells().SelectTo({2, 2}), type(l, "plants");
       },
       "/plants /plants / / @2,2",
       {}},
      {[&](L& l) {
         l.Editor.Cells().SelectTo({2, 1}), type(l, "a");
       },
       "/ / / / @2,1",
       {Told("You cannot give several items the same word.")}},
      {[&](L& l) { l.Editor.Cells().Click({2}), paste(l, "b, or c\r\n\r\nd\r\n"); }, "/ b, or c/ / d/ @2,1", {}},
      {[&](L& l) { l.Editor.Cells().Click({2}), paste(l, "b\nc\nd\ne\n"); },
       "/ / / / @2,1",
       {{"The project has no more than 4 items.", BoxAnswer::Ok, "Line 4 of the pasted data."}}},
      {[&](L& l) {
         l.Editor.Cells().Click({3, 2}), paste(l, "pets\npets");
       },
       "/ / /pets /pets @3,2",
       {}},
      {[&](L& l) { paste(l, "4\tdog\tpets\n3\tcat\tpets\n"); }, "/ / cat/pets dog/pets @1,1", {}},
      {[&](L& l) { paste(l, "2\ta\n5\tb\n"); },
       "/ / / / @1,1",
       {{"'5' is no number of an item, from 1 to 4.", BoxAnswer::Ok, "Line 2 of the pasted data."}}},
      {[&](L& l) { paste(l, "2\ta\n2\tb\n"), l.Editor.Cells().Undo(); },
       "/ / / / @1,1",
       {{"Item 2 is on line 1 already.", BoxAnswer::Ok, "Line 2 of the pasted data."}}},
      {[&](L& l) { type(l, "x"), l.OpenFile("\xEF\xBB\xBFrose\n\ntree\ncat\n"); }, "rose/ tree/ cat/ / @1,1", {}},
      {[&](L& l) { type(l, "x"), l.OpenFile("a\nb"), l.Editor.Cells().Undo(); }, "x/ / / / @1,1", {}},
      {[&](L& l) { l.OpenFile("Category;WORD;Item\r\npets;\"cat; big\";3\r\nplants;rose;1\r\n"); },
       "rose/plants / cat; big/pets / @1,1",
       {}},
      {[&](L& l) { l.OpenFile("caf\xE9,pets\nx,pets\n"); }, "café/pets x/pets / / @1,1", {}},
      {[&](L& l) { l.OpenFile("word\na\nb\nc\nd\n"); }, "a/ b/ c/ d/ @1,1", {}},
      {[&](L& l) { l.OpenFile("a\nb\nc\nd\ne\n"); },
       "/ / / / @1,1",
       {{"The project has no more than 4 items.", BoxAnswer::Ok, "Line 5 of 'C:\\list.csv'."}}},
      {[&](L& l) {
         l.OpenFile(
             std::string("\xFF\xFE"
                         "a\0",
                         4));
       },
       "/ / / / @1,1",
       {{"This is no plain text.  Save it as 'CSV UTF-8' or as UTF-8 text.", BoxAnswer::Ok, "Line 1 of"}}},
  };
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    const auto& [act, state, boxes] = kCases[i];
    Lab lab;
    ASSERT_TRUE(lab.Editor.Open(lab.Project));
    for (const ExpectedBox& box : boxes) lab.Fakes.Boxes.Expect(box);
    act(lab);
    EXPECT_EQ(lab.State(), state) << i;
  }
}

TEST(WordListEditor, SavesAListWithoutFaultsBesideTheDataAndInTheBackup) {
  Lab lab;
  ASSERT_TRUE(lab.Editor.Open(lab.Project));
  EXPECT_EQ(lab.Editor.Cells().Text({2, 0}), "2  lure");
  EXPECT_EQ(lab.Editor.Told(), "Type the words of the 4 items, paste them, or open a file that has them.");
  lab.Editor.Cells().Paste("rose\ntree\nyo-yo\n");
  EXPECT_EQ(lab.Editor.Told(), "3 of 4 items have a word.");
  lab.Fakes.Boxes.Expect(Told("Item 4 has no word."));
  EXPECT_FALSE(lab.Editor.Save());
  EXPECT_EQ(lab.Editor.Cells().Cursor(), (GridCell{4, 1}));
  lab.Editor.Cells().SetEntryText("YoYo");  // entered by the save
  lab.Fakes.Boxes.Expect(Told("The words of item 3, 'yo-yo' and of item 4, 'YoYo' are one."));
  EXPECT_FALSE(lab.Editor.Save());
  lab.Editor.Cells().SetEntryText("toy");
  EXPECT_TRUE(lab.Editor.Save());
  const std::string file = "item,word\r\n1,rose\r\n2,tree\r\n3,yo-yo\r\n4,toy\r\n";
  EXPECT_EQ(lab.Get("C:/Data/AB Words.csv"), file);
  EXPECT_EQ(lab.Get("D:/Backup/AB Words.csv"), file);
  EXPECT_EQ(lab.Editor.Told(), "4 of 4 items have a word.  They are saved in 'C:\\Data\\AB Words.csv'.");
  EXPECT_TRUE(lab.Editor.MayLeave());

  lab.Editor.Cells().Click({1, 2});
  lab.Editor.Cells().Paste("plants\nplants\ntoys\nplants\n");
  lab.Fakes.Boxes.Expect(Told("Item 4 is in 'plants', but category 2 of the project is 'toys'."));
  EXPECT_FALSE(lab.Editor.Save());
  EXPECT_EQ(lab.Editor.Cells().Cursor(), (GridCell{4, 2}));
  lab.Fakes.Boxes.Expect({"You will lose all unsaved changes.  Are you sure that you want to do this?", BoxAnswer::No});
  EXPECT_FALSE(lab.Editor.MayLeave());
}

TEST(WordListEditor, AsksBeforeItReplacesAFileThatDoesNotFitOrHasChanged) {
  Lab lab;
  lab.Put("C:/Data/AB Words.csv", "item,word\n1,a\n1,b\n");
  lab.Fakes.Boxes.Expect(
      {"'AB Words.csv' is passed over: a line does not fit.", BoxAnswer::Ok, "Line 3: Item 1 is on line 2 already."});
  ASSERT_TRUE(lab.Editor.Open(lab.Project));
  EXPECT_EQ(lab.State(), "/ / / / @1,1");
  lab.Editor.Cells().Paste("a\nb\nc\nd");
  lab.Fakes.Boxes.Expect(Warned("'AB Words.csv' does not fit the project.  Do you wish to replace it?", BoxAnswer::No));
  EXPECT_FALSE(lab.Editor.Save());
  EXPECT_EQ(lab.Get("C:/Data/AB Words.csv"), "item,word\n1,a\n1,b\n");
  lab.Fakes.Boxes.Expect(
      Warned("'AB Words.csv' does not fit the project.  Do you wish to replace it?", BoxAnswer::Yes));
  EXPECT_TRUE(lab.Editor.Save());
  lab.Put("C:/Data/AB Words.csv", "another computer's");
  lab.Fakes.Boxes.Expect(
      Warned("'AB Words.csv' has changed since it was read.  Do you wish to replace it?", BoxAnswer::Yes));
  EXPECT_TRUE(lab.Editor.Save());
  lab.Editor.Cells().SelectTo({4, 2});
  lab.Editor.Cells().DeleteKey();
  lab.Fakes.Boxes.Expect(Warned("Do you wish to remove the project's word list?", BoxAnswer::Yes));
  EXPECT_TRUE(lab.Editor.Save());
  EXPECT_FALSE(lab.Has("C:/Data/AB Words.csv") || lab.Has("D:/Backup/AB Words.csv"));
}

TEST(WordCompletion, ListsWhatFitsATextBestFirst) {
  WordList list;
  for (const char* text : {"pear", "pea", "grape", "peach", "pea soup", "spear", "crème", "cremes", "4x4"}) {
    list.Words.push_back({text, ""});
  }
  const WordCompletion words(list);
  struct Case {
    const char* Text;
    std::vector<int> Items;
    int Meant;
    const char* Nearest;
  };
  const Case kCases[] = {
      {"pea", {2, 1, 4, 5, 6}, 2, "Nearest: 2 pea."},
      {"PEA-", {2, 1, 4, 5, 6}, 2, "Nearest: 2 pea."},
      {"p", {1, 2, 4, 5, 3, 6}, 1, ""},
      {"rap", {3}, 3, ""},
      {"ear", {1, 6}, 0, "Nearest: 1 pear."},
      {"paer", {1}, 0, "Nearest: 1 pear."},
      {"peac", {4, 1, 2}, 4, "Nearest: 1 pear, 2 pea, 4 peach."},
      {"creme", {7, 8}, 7, "Nearest: 7 crème, 8 cremes."},
      {"x4", {9}, 9, ""},
      {"?", {}, 0, ""},
      {"xyz", {}, 0, ""},
  };
  WordChoices choices;
  for (const Case& c : kCases) {
    words.Find(c.Text, choices);
    EXPECT_EQ(choices.Items, c.Items) << c.Text;
    EXPECT_EQ(choices.Meant(), c.Meant) << c.Text;
    EXPECT_EQ(words.NearestText(c.Text), c.Nearest) << c.Text;
  }
  EXPECT_EQ(words.ItemOf("Pea Soup"), 5);
  EXPECT_EQ(words.ItemOf("creme"), 7);
  EXPECT_EQ(words.ItemOf("peac"), 0);
}

}  // namespace
}  // namespace zova::testing
