// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/QuickHelp.h"

#include <algorithm>
#include <array>

namespace zova {

namespace {

struct Sentence {
  std::string_view Name;
  std::string_view Text;
};

constexpr bool IsBefore(const Sentence& left, const Sentence& right) { return left.Name < right.Name; }

// By name, capitals first, as the search needs it.
constexpr auto kSentences = std::to_array<Sentence>({
    {"FraPrmScr", "One page of the project's parameters; its answers are checked when you select 'Next >>'."},
    {"chkRating", "Check this box if ratings were taken on this test."},
    {"cmdAddVar", "Starts another between subject variable; a project may have up to 10."},
    {"cmdBack", "Returns to the step before this one; what you have entered is kept."},
    {"cmdBack1", "Returns to the page before this one; everything you have entered is kept."},
    {"cmdBrowse", "Opens a list of files, from which you can choose the one with the subject's data."},
    {"cmdCancel", "Leaves this screen without entering a subject."},
    {"cmdCancel1", "Leaves these pages without creating a project; what you have entered on them is erased."},
    {"cmdCancel3", "Leaves this screen without choosing a directory."},
    {"cmdDelete", "Deletes the selected lines of this test and pulls the lines below them up."},
    {"cmdDone", "Goes on to the next test; 'Review' returns to the first one."},
    {"cmdEntered", "Completes the subject's information and opens the screen on which recalls are entered."},
    {"cmdEntered1", "Completes the project and saves its parameters, which cannot be changed afterwards."},
    {"cmdFinished", "Checks all tests for mistakes and, when there are none, saves the subject as complete."},
    {"cmdInsert", "Opens a blank line at the cursor and pushes the lines below it down."},
    {"cmdNext", "Checks what you have entered and goes on to the next step."},
    {"cmdNext1", "Checks the answers on this page and goes on to the next one."},
    {"cmdOK", "Looks for the data of the subject whose identifier you have entered."},
    {"cmdOpen", "Opens a project that was defined before, so that you can enter its subjects or score them."},
    {"cmdPath1", "Copies the directory that is open in the list into the box of the primary directory."},
    {"cmdPath2", "Copies the directory that is open in the list into the box of the backup directory."},
    {"cmdPicEnter", "Starts entering a subject's recall lists for the open project."},
    {"cmdPicHelp", "Opens the help topics."},
    {"cmdPicMaster", "Creates a master file with the scores of all subjects of the open project."},
    {"cmdPicMeans", "Reads a master file and shows its means by the levels of the variables."},
    {"cmdPicUnfinished", "Takes up a subject whose entry was put aside, so that you can complete it."},
    {"cmdReview", "Cycles through the variables entered so far, one after another."},
    {"cmdSetPath", "Accepts the directory that stands in the box."},
    {"cmdSubCancel", "Leaves this subject without saving what was changed since the last save."},
    {"cmdminadd", "Raises every selected minute by one, up to the length of the test."},
    {"cmdminmin", "Lowers every selected minute by one; a minute of 1 becomes blank."},
    {"dirParamPath", "Double-click a directory to open it and to put its path into the box."},
    {"dirPath1", "Double-click a directory to open it, then copy its path into the primary or the backup box."},
    {"drvParamPath", "Select the drive whose directories you want to see in the list."},
    {"drvPath1", "Select the drive whose directories you want to see in the list."},
    {"fraCurrentProject", "Shows which project is open."},
    {"fraInformation", "Shows which project is open and which subject is being entered."},
    {"fraInput", "The recalls of one subject are entered on this screen, test by test, in the order of recall."},
    {"fraParam", "The pages on which a project is defined; once it is completed its parameters cannot be changed."},
    {"fraParamPath", "Choose a directory on this screen by its drive and its name, or type its path."},
    {"fraPretty", "These buttons insert and delete lines of the test that is shown."},
    {"fraSubInfo", "The subject is identified on this screen before its data are entered."},
    {"framinbump", "These buttons change all selected minutes by one."},
    {"grdInput", "The recalls of this test, a line for each; click a cell or drag over several to select them."},
    {"lblAbbr", "The prefix begins the name of every data file, so that the files of different projects stay apart."},
    {"lblAbbrPrompt", "Type the prefix of the project's data files into the box beside this."},
    {"lblCat", "Answer 'Yes' if the study list was made of categories with the same number of items in each."},
    {"lblCategories", "How many categories the list has; the number of items must be divisible by it."},
    {"lblCounter", "The page that you are on, out of the eight pages of the project's parameters."},
    {"lblCurrentProject", "The title of the open project, or \"(none)\" while no project is open."},
    {"lblDir1", "The directories of the selected drive; double-click one to open it."},
    {"lblDrive1", "The drive whose directories are listed."},
    {"lblExp", "The title names the project and its parameter file; choose one that you will recognize later."},
    {"lblExpNote", "A meaningful title makes the project easier to find among others later on."},
    {"lblFalsemem", "In a false memory experiment each category has one critical item that was never presented."},
    {"lblFastHelp", "Right-click any label or button to read in one sentence what it is for."},
    {"lblInfCtr", "The step that you are on: first the identifier, then one step for each variable."},
    {"lblInfo", "Type the number of the level to which the subject belongs into the box beside this."},
    {"lblInput", "The box beside this is where all numbers are typed; press <Enter> after each."},
    {"lblItemmax",
     "How many items the study list has, from 1 to 999; critical non-presented items, once added, are counted too."},
    {"lblLuresIncluded", "The number of items includes one critical non-presented item for each category."},
    {"lblMin", "Answer 'Yes' if you know in which minute of the test each item was recalled."},
    {"lblMinMax", "How many minutes the subjects were given for each recall test, from 1 to 6000."},
    {"lblMrk", "Between subject variables tell your groups of subjects apart, for instance by age or by instruction."},
    {"lblNote",
     "The last item number of each category stands for its critical item; code your recall data accordingly."},
    {"lblParamDir", "The directories of the selected drive; double-click one to choose it."},
    {"lblParamDrive", "The drive whose directories are listed."},
    {"lblParamInstruction", "Explains which directory is to be chosen here."},
    {"lblParamNote", "Explains what your choice changes, and what it does not."},
    {"lblParamPath", "The path of the directory that you have chosen."},
    {"lblParamResult", "Where the 'Param' folder will be found once you select 'OK'."},
    {"lblParamTitle",
     "What this screen is for: the 'Param' folder holds one parameter file for each of your projects."},
    {"lblPath1", "The directory that will hold the data of the project; every project must have one."},
    {"lblPath2",
     "A second directory, best on another drive, that receives a copy of all data; \"(none)\" keeps no copies."},
    {"lblPaths", "All subjects' data are saved in the primary directory, and a copy of them in the backup directory."},
    {"lblProjectName", "The title of the project to which the data belong."},
    {"lblQuickHelp", "Right-click any label or button to read in one sentence what it is for."},
    {"lblRate", "Answer 'Yes' if subjects rated the items that they recalled, for instance by confidence."},
    {"lblRatemax", "The highest rating that a subject could give, from 1 to 1000; the lowest is 1."},
    {"lblRating", "Check each test on which ratings were taken; at least one must be checked."},
    {"lblSnmbr", "Type the subject's identifier into the box below."},
    {"lblSnmbr2", "Explains how the data of the subject are found."},
    {"lblSubInfo", "What this screen is for: a new subject, data that were completed before, or unfinished ones."},
    {"lblSubNote", "An identifier has from 1 to 20 characters and becomes part of the file's name."},
    {"lblTUpdate", "The test whose recalls are shown in the grid."},
    {"lblTests", "How many times each subject was asked to recall the list, from 1 to 15."},
    {"lblThisOne", "The open project and the subject that is being entered."},
    {"lblTitle", "What this page asks about; its answers are checked when you go on to the next page."},
    {"lblVarHelp", "Explains how names of variables and levels are changed, erased and added."},
    {"lblVarLevel",
     "A level of this variable; click it to rename it, or press <Delete> to erase it. 'Add Level' adds one."},
    {"lblVarName",
     "The variable on display; click it to rename it, or press <Delete> to erase it with all of its levels."},
    {"lblVariable", "Says which name the box below is for: that of a variable or that of one of its levels."},
    {"lblVars", "The levels of this variable with their numbers."},
    {"optCatNo", "The study list was not made of categories."},
    {"optFalsemem", "Adds one critical non-presented item to each category, as its last member."},
    {"optFalseno", "The list has only items that were presented."},
    {"optMinno", "No minutes will be entered."},
    {"optMinyes", "The minute of each recall will be entered along with the item."},
    {"optMrkno", "The project has no between subject variables."},
    {"optMrkyes", "Adds between subject variables; type the name of each and of its levels."},
    {"optRateno", "No ratings will be entered."},
    {"optRateyes", "A rating will be entered with each item on the tests that you check below."},
    {"optcatyes", "The study list was made of categories; their number is asked next."},
    {"txtAbbr", "Type the prefix of the project's data files here, up to 20 characters."},
    {"txtCategories", "Type the number of categories here; all categories must have an equal number of items."},
    {"txtExp", "Type the title of the project here; its parameter file will bear the same name."},
    {"txtInfo", "Type the number of the subject's level here and press <Enter>."},
    {"txtInput", "Type a number here and press <Enter>; it goes into the selected cell, or a 0 to blank the cell."},
    {"txtItemmax", "Type the number of study items here, from 1 to 999."},
    {"txtMinMax", "Type the length of a recall test in minutes here, from 1 to 6000."},
    {"txtParamPath", "Type the path of a directory here, or choose it in the lists."},
    {"txtPath1",
     "Type the primary directory here, or choose it in the list and select the 'Copy Path' button beside this box."},
    {"txtPath2",
     "Type the backup directory here, or choose it in the list and copy it; leave \"(none)\" to keep no copies."},
    {"txtRatemax", "Type the highest possible rating here, from 1 to 1000."},
    {"txtSub", "Type the subject's identifier here, up to 20 characters, and press <Enter>."},
    {"txtTests", "Type the number of recall tests per subject here, from 1 to 15."},
    {"txtVariable",
     "Type a name here and press <Enter>; it names the variable or level that is highlighted or asked for."},
});
static_assert(std::is_sorted(kSentences.begin(), kSentences.end(), IsBefore));

std::string_view SentenceOf(std::string_view name) noexcept {
  const auto found = std::lower_bound(kSentences.begin(), kSentences.end(), Sentence{name, {}}, IsBefore);
  return found != kSentences.end() && found->Name == name ? found->Text : std::string_view();
}

}  // namespace

std::string_view QuickHelp(std::string_view controlName) noexcept {
  const std::string_view own = SentenceOf(controlName);
  if (!own.empty()) return own;
  // A member of an array: its name without the number.
  while (!controlName.empty() && controlName.back() >= '0' && controlName.back() <= '9') controlName.remove_suffix(1);
  return SentenceOf(controlName);
}

}  // namespace zova
