// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/wizard/VariableEditor.h"

#include "support/ScriptedBoxes.h"

using namespace zova;
using namespace zova::testing;

// "1[text] 1. a 2. b": the level highlighted or asked for, the box, the labels.
static std::string Shown(const VariableEditor& editor) {
  std::string shown = std::to_string(editor.CurrentLevel()) + "[" + editor.EntryText() + "]";
  for (const std::string& label : editor.LevelLabels()) shown += " " + label;
  return shown;
}

static void Type(VariableEditor& editor, std::initializer_list<const char*> names) {
  for (const char* name : names) editor.SetEntryText(name), editor.Enter();
}

TEST(VariableEditor, AsksForOneNameAfterAnother) {
  VariableEditor editor;
  editor.HighlightLevel(1), Type(editor, {"", "  "});
  EXPECT_EQ(editor.Prompt() + editor.Heading(), "What is the name of variable 1?");
  Type(editor, {" A\"g,e\t "});
  EXPECT_EQ(editor.Prompt(), "What is the name of level 1?");
  EXPECT_EQ(editor.Heading(), "The variable AGE has the following levels:");
  Type(editor, {"young\t", "old"}), editor.HighlightLevel(1), Type(editor, {"child", "oldest"});
  editor.HighlightVariable(), editor.Enter(), editor.HighlightLevel(5);
  Type(editor, {"4", "5", "6", "7", "8", "9", "1,0", "eleventh"});
  EXPECT_EQ(Shown(editor), "11[] 1. child 2. old 3. oldest 4. 4 5. 5 6. 6 7. 7 8. 8 9. 9 10. 1,0");
}

TEST(VariableEditor, AddsReviewsDeletesAndChecks) {
  ScriptedBoxes boxes{Told("You cannot add new variable 2 until you have filled in at least a name for variable 1")};
  VariableEditor editor;
  editor.DeleteHighlighted(boxes);
  EXPECT_TRUE(editor.Check(boxes)) << "no variable at all";
  for (const char* name : {"", "a"}) editor.SetEntryText(name), editor.AddVariable(boxes);
  Type(editor, {"b", "b1", "b2", "b3"});
  editor.HighlightLevel(2), editor.DeleteHighlighted(boxes);
  EXPECT_EQ(Shown(editor), "2[b3] 1. b1 2. b3      Add Level");
  for (int i = 0; i < 2; ++i) editor.DeleteHighlighted(boxes);
  editor.SetEntryText("b4"), editor.Review(), editor.SetEntryText("");
  boxes.Expect(Told("You must have a name for each variable."));
  EXPECT_FALSE(editor.Check(boxes));
  EXPECT_EQ(Shown(editor), "0[a]      Add Level") << "an emptied box erases no name";
  boxes.Expect(Told("You must have at least 1 level per variable.  Please review."));
  EXPECT_FALSE(editor.Check(boxes));
  EXPECT_EQ(Shown(editor), "1[]      Add Level");
  editor.HighlightVariable();
  for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Cancel, BoxAnswer::Yes}) {
    boxes.Expect({"Do you wish to erase variable 1 and all of its levels?", answer, "", BoxIcon::Exclamation,
                  BoxButtons::YesNoCancel, BoxAnswer::No, "Warning"});
    editor.DeleteHighlighted(boxes);
  }
  EXPECT_EQ(Shown(editor), "0[b] 1. b1 2. b4      Add Level");
  editor.AddVariable(boxes);
  boxes.Expect(Told("You must have a name for each variable."));
  EXPECT_FALSE(editor.Check(boxes));
  EXPECT_NE(editor.Heading(), "") << "it can be highlighted and deleted";
  for (int variable = 3; variable <= kMaxVariables; ++variable) editor.SetEntryText("v"), editor.AddVariable(boxes);
  boxes.Expect(Told("Sorry. ZOVA will allow a maximum of 10 variables."));
  editor.SetEntryText("last"), editor.AddVariable(boxes);
  EXPECT_EQ(editor.Prompt(), "What is the name of variable 10?");
}

TEST(VariableEditor, KeepsWhatAnOldFileHolds) {
  ProjectParameters project, stored;
  project.VariableCount = 1, project.LevelCounts[0] = kMaxLevels, project.VariableNames[0] = " old, name ";
  project.LevelNames[0].fill("x");
  VariableEditor editor;
  editor.Load(project), editor.Review(), editor.HighlightLevel(11), editor.Enter();
  EXPECT_EQ(Shown(editor).substr(0, 5) + editor.LevelLabels().back(), "12[] 11. x");
  stored.VariableNames.fill("stale"), stored.LevelCounts.fill(3), editor.Store(stored);
  EXPECT_EQ(stored, project);
}
