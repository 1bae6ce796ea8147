// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs the program itself, as a shell of POSIX does.

#ifdef _WIN32

#include <gtest/gtest.h>

TEST(Command, RunsFromAShell) { GTEST_SKIP() << "no shell of POSIX; tools/compare-windows.py runs the program"; }

#else

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>

#include "project/ProjectFile.h"
#include "scoring/Examples.h"
#include "subjects/SubjectFile.h"
#include "support/Scratch.h"

namespace zova::testing {
namespace {

constexpr const char* kMaster = "C:\\Data\\AB Master.txt";

class Command : public ::testing::Test, protected Study {
 protected:
  Command() : Study({.Items = 2}) {
    Files.Put("C:\\Ab.prm", FormatProject(Project, kCurrentMarker));
    Put("1", "1 2 | 2");
    Files.MakeDirectory("D:\\Out");
  }
  static std::string WithoutOrder(int lists) {
    return "The study order of " + std::to_string(lists) +
           " lists in the CSV of all recalls is not known: serial measures of other programs would follow the item "
           "numbers.\n";
  }
  // Runs the program on drive C: with `arguments` as a shell takes them, and looks at all that it answers: its exit
  // code, the paths on standard output, and the whole of standard error.
  void Expect(const std::string& arguments, int code, const std::vector<const char*>& written,
              const std::string& errors) {
    const std::string root = Files.Root().string();
    const std::string command = "cd '" + root + "/C' && ZOVA_DRIVES='C=" + root + "/C;D=" + root + "/D' '" + Program +
                                "' </dev/null >../out 2>../err " + arguments;
    const int status = std::system(command.c_str());
    EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, code) << arguments;
    std::string lines;
    for (const char* path : written) lines += Files.Native(path).string() + "\n";
    EXPECT_EQ(ReadFile(Files.Root() / "out"), lines) << arguments;
    EXPECT_EQ(ReadFile(Files.Root() / "err"), errors) << arguments;
  }

  std::string Program = ZOVA_MASTER_PROGRAM;
};

TEST_F(Command, WritesTheMasterWhereverItIsTold) {
  for (const char* arguments : {"--measures chkBasic,minutes 'C:\\Ab.prm'", "--without itr,chkIP,lures \"$PWD/Ab.prm\"",
                                "--measures recall,itr --without itr -- 'c:\\AB.PRM'"}) {
    Expect(arguments, 0, {kMaster}, "");
    EXPECT_EQ(Files.Get(kMaster),
              "Sub ID's, Net(Test 1), Net(Test 2), Losses(Test 1 to 2), Gains(Test 1 to 2)\r\n1,  2,  1,  1,  0\r\n");
  }
  Expect("Ab.prm --destination Bare.txt", 0, {"C:\\Data\\Bare.txt", kMaster}, "");
  Expect("--destination ../D/Out/a.txt Ab.prm", 0, {"D:\\Out\\a.txt", kMaster}, "");
  Expect("--clean ../D/Out/ --long x.csv --destination ../D/Out/ Ab.prm", 0,
         {"D:\\Out\\AB Master.txt", "D:\\Out\\AB Clean.csv", "C:\\x.csv", kMaster}, WithoutOrder(2));
  const char* serial = "D:\\Out\\AB Serial Position Master.txt";
  Files.Put("C:\\order.dat", "1,2\n2,1\n");
  Files.Put("C:\\Data\\Sdata\\Unfinished\\AB Sub#7.dat", "");
  Expect("--serial-order order.dat --destination='D:\\Out\\c.txt' Ab.prm", 0, {"D:\\Out\\c.txt", kMaster, serial},
         "1 unfinished subject is not included in the master.\n");
  EXPECT_TRUE(Files.Get(serial).ends_with("\r\nSmooth, 1, 1, 1, 0\r\n"));
}

TEST_F(Command, RefusesWrongUsage) {
  for (const auto& [arguments, fault] :
       {std::pair("", "PROJECT.prm is required"),
        {"''", "PROJECT.prm: a file needs a name"},
        {"Ab.prm B.prm", "unexpected argument: B.prm"},
        {"--measures chkBasic,chkbasic Ab.prm", "--measures: unknown measure 'chkbasic'"},
        {"--without itr,all Ab.prm", "--without: unknown measure 'all'"},
        {"--measures chkBasic chkBi Ab.prm", "unexpected argument: Ab.prm"},
        {"--all Ab.prm", "unexpected argument: --all"},
        {"-- Ab.prm -x", "unexpected argument: -x"},
        {"--mean Sex Ab.prm", "unexpected argument: --mean"},
        {"-1", "unexpected argument: -1"},
        {"Ab.prm --serial-order", "--serial-order: 1 required FILE missing"},
        {"Ab.prm --group-by Sex", "--group-by requires --group-size"},
        {"--group-size 2 --group-by '' Ab.prm", "the project has no variable ''; it has none"},
        {"--clean c.csv --means '' --means Sax Ab.prm", "the project has no variable 'Sax'; it has none"},
        {"--means '' --statistics se,mode Ab.prm", "--statistics: unknown statistic 'mode'"},
        {"--computed-only Ab.prm", "--computed-only requires --means"},
        {"--further --long l.csv Ab.prm", "--further requires --clean or --means"},
        {"--clean c.csv --positions Ab.prm", "--positions requires --further"},
        {"--groups-csv g.csv Ab.prm", "--groups-csv requires --group-size"},
        {"--clean= Ab.prm", "--clean: a file needs a name"},
        {"--group-size 1 Ab.prm",
         "--group-size: Subjects per group must be a number greater than 1.  Please re-enter."}})
    Expect(arguments, 2, {}, std::string("zova-master: ") + fault + "\nTry 'zova-master --help'.\n");
  EXPECT_FALSE(Files.Has(kMaster));
}

TEST_F(Command, RefusesNamesThatLeadElsewhereAndEscapesThem) {
  std::string content = Files.Get("C:\\Ab.prm");
  content.replace(content.find("\"AB\""), 4,
                  "\"..\\\xC2\x9B"
                  "A\"");
  Files.Put("C:\\Ab.prm", content);
  const std::string reason =
      "This project can be viewed only: its abbreviation '..\\\\x9bA' cannot be part of a file name.\n";
  Expect("Ab.prm", 1, {}, reason);
  Files.Put("C:\\a\x1b[31m.prm", "");
  Expect("'a\x1b[31m.prm'", 1, {},
         "This is not a valid file format.  Please select a different file.\nReading 'C:\\a\\x1b[31m.prm'\n"
         "Line 1: input past end of file.\n");
}

TEST_F(Command, ExplainsEveryOptionInUsageAndManual) {
  for (const auto& [program, name, count] :
       {std::tuple(ZOVA_MASTER_PROGRAM, "zova-master.1", 18), {ZOVA_IMPORT_PROGRAM, "zova-import.1", 32}}) {
    Program = program;
    Expect("-h >../usage", 0, {}, "");
    const std::string usage = ReadFile(Files.Root() / "usage");
    const std::string manual = ReadFile(std::filesystem::path(ZOVA_MANUAL) / name);
    int options = 0;
    for (std::size_t at = usage.find("\n  -"); at != std::string::npos; at = usage.find("\n  -", at + 1), ++options) {
      const std::size_t option = usage.find("--", at) + 1;
      EXPECT_THAT(manual,
                  ::testing::HasSubstr("It Fl " + usage.substr(option, usage.find_first_of(" \n", option) - option)));
    }
    EXPECT_EQ(options, count) << name;
  }
}

TEST_F(Command, ImportsATable) {
  Program = ZOVA_IMPORT_PROGRAM;
  Files.Put("C:\\t.csv", "subject,list,item\n9,1,2\n9,2,1\n8,1,1\n8,1,2\n8,2,2\n");
  Files.Put("C:\\w.csv", "subject,list,word\na,1,apple\n");
  const char* kept =
      "A master or a data file of a project is never replaced.  Please select another name.\nC:\\Ab.prm\n";
  const char* keptTable =
      "A master or a data file of a project is never replaced.  Please select another name.\nC:\\T.csv\n";
  const char* stopped = "Something is undecided or wrong: see the report.  Nothing was imported.\n";
  for (const auto& [arguments, code, errors] :
       {std::tuple("--dry-run t.csv Ab.prm >../report", 0, ""),
        {"--where list=1 t.csv Ab.prm >../report", 1, stopped},
        {"t.csv Ab.prm >../report", 0, "2 subjects were imported.\n"},
        {"t.csv Ab.prm >../report", 0, "0 subjects were imported.\n"},
        {"--dry-run --unmatched Ab.prm t.csv Ab.prm >../report", 1, kept},
        {"--dry-run --unmatched ../C/T.csv t.csv Ab.prm >../report", 1, keptTable},
        {"--shape square t.csv Ab.prm", 2,
         "zova-import: --shape: 'square' is none of long, lists, wide\nTry 'zova-import --help'.\n"},
        {"--new-project X --directory ../D w.csv >../refused", 1, stopped},
        {"--new-project X --directory ../D --items position w.csv >../refused", 1, stopped},
        {"t.csv", 2, "zova-import: PROJECT.prm is required\nTry 'zova-import --help'.\n"},
        {"--new-project X t.csv", 2, "zova-import: --new-project requires --directory\nTry 'zova-import --help'.\n"}}) {
    Expect(arguments, code, {}, errors);
  }
  EXPECT_THAT(ReadFile(Files.Root() / "report"), ::testing::HasSubstr("\r\nsame,2,,,,,\r\n"));
  const std::string refused = ReadFile(Files.Root() / "refused");
  EXPECT_THAT(refused, ::testing::HasSubstr("\r\nrows,1,"));
  EXPECT_TRUE(refused.ends_with("test 1\r\nerror,1,,,,,\"There are no study rows, which --items position needs.\"\r\n"))
      << refused;
  Files.Put("C:\\Data\\.zova-AB.journal", "ZOVA changes\n");
  Expect("t.csv Ab.prm >../report", 1, {},
         "This is not a valid file format.  Please select a different file.\nReading 'C:\\Data\\.zova-AB.journal'\n"
         "It should hold an interrupted change of subjects.  The project is not opened until it is deleted.\n");
  EXPECT_TRUE(Files.Get("C:\\Data\\Sdata\\AB Sub#9.dat").ends_with("1,2,0,0\r\n2,0,0,0\r\n1,1,0,0\r\n2,0,0,0\r\n"));
}

TEST_F(Command, ComparesTwoEntries) {
  Program = ZOVA_COMPARE_PROGRAM;
  const auto put = [&](const std::string& directory, const std::string& name) {
    Files.Put(directory + "\\" + name, Files.Get("C:\\Data\\Sdata\\AB Sub#1.dat"));
  };
  const char* none = "zova-compare: no subject was entered twice\n";
  Expect("Ab.prm >../report", 1, {}, none);
  put("C:\\Data\\Sdata\\Second", "AB Sub#1.dat");
  put("C:\\Data\\Sdata\\Second", "ABC Sub#1.dat");  // another project's
  Expect("Ab.prm >../report", 0, {}, "");
  EXPECT_THAT(ReadFile(Files.Root() / "report"), ::testing::HasSubstr("\r\nall,,1,0,3,3,100,3,0,0,1,100,1,1,1\r\n"));
  EXPECT_THAT(ReadFile(Files.Root() / "report"), ::testing::Not(::testing::HasSubstr("ABC")));
  Files.Put("C:\\Data\\Sdata\\Second\\AB Sub#2.dat", "");
  Files.Put("C:\\Data\\Sdata\\AB Sub#2.dat", "");
  put("C:\\Data\\Sdata\\Second", "AB Sub#3.dat");
  Expect("Ab.prm >../report", 1, {},
         "The report leaves out what cannot be compared.\nThere is no first entry of 'AB Sub#3.dat'.\n"
         "Reading 'C:\\Data\\Sdata\\AB Sub#2.dat'\nLine 1: input past end of file.\n");
  EXPECT_THAT(ReadFile(Files.Root() / "report"), ::testing::HasSubstr("\r\nall,,1,0,"));
  put("D:\\Out", "ab sub#1.DAT");
  put("D:\\Out", "AB Sub#4.dat");
  put("C:\\Data\\Sdata\\Second\\First", "AB Sub#1.dat");
  Files.Put("C:\\Data\\Sdata\\AB Sub#1.dat", "");  // not as typed
  Expect("--with ../D/Out Ab.prm >../report", 0, {},
         "The report leaves out what cannot be compared.\nOnly one directory has 'AB Sub#2.dat'.\n"
         "Only one directory has 'AB Sub#4.dat'.\n");
  Expect("--with Ab.prm", 2, {}, "PROJECT.prm is required\nRun with --help for more information.\n");
}

#ifdef __linux__
TEST_F(Command, ReportsAFullStandardOutput) {
  const std::string fault = "zova-master: standard output cannot be written\n";
  for (const char* output : {">/dev/full", ">&-"}) {
    Expect(std::string("Ab.prm ") + output, 1, {}, fault);
    Expect(std::string("--means '' Ab.prm ") + output, 1, {}, Files.Native(kMaster).string() + "\n" + fault);
  }
}
#endif

TEST_F(Command, CombinesSubjectsIntoGroups) {
  const char* combined = "C:\\Data\\AB Combined Master.txt";
  const std::string header = "Sub ID's, Net(Test 1), Net(Test 2), Losses(Test 1 to 2), Gains(Test 1 to 2)\r\n";
  const std::string options = "--measures chkBasic --group-size 2 ";
  Expect(options + "Ab.prm", 1, {},
         "There are not enough subjects for one group.\nno groups of 2, left over: subject 1\n");
  EXPECT_FALSE(Files.Has(kMaster)) << "said before anything is written";

  for (const char* id : {"2", "3"}) Put(id, "1 2 | 2");
  Expect(options + "Ab.prm", 0, {kMaster, combined}, "1 group of 2, left over: subject 3\n");
  EXPECT_EQ(Files.Get(combined), header + "Group 1 (1+2),  2,  1,  1,  0\r\n");
  Files.Put("C:\\Data\\AB Combine Order.dat", "\"1\",1\r\n\"2\",2\r\n\"3\",3\r\n");  // not named, not taken
  Files.Put("C:\\order.dat", "\"3\",1\r\n\"1\",2\r\n");
  Expect(options + "--group-order order.dat --destination ../D/Out/a.txt Ab.prm", 0,
         {"D:\\Out\\a.txt", kMaster, "D:\\Out\\AB Combined Master.txt"},
         "Subject 2 is not in 'C:\\order.dat' and comes last.\n1 group of 2, left over: subject 2\n");
  EXPECT_EQ(Files.Get("D:\\Out\\AB Combined Master.txt"), header + "Group 1 (3+1),  2,  1,  1,  0\r\n");
  Files.Put("C:\\order.dat", "\"3\",1\r\n\"1\",1\r\n");
  Expect(options + "--group-order order.dat Ab.prm", 1, {}, "Position 1 is used twice.\nReading 'C:\\order.dat'\n");
}

TEST_F(Command, HandsOnToOtherPrograms) {
  Project = MakeProject({.Items = 2, .Variables = {"Sex", "Age, then"}});
  Project.LevelCounts = {2, 2};
  Project.LevelNames = {{{"f", "m"}, {"young", "old"}}};
  Files.Put("C:\\Ab.prm", FormatProject(Project, kCurrentMarker));
  Put("1", "1 2 | ", 2);
  Put("2", "1 | 1", 2);
  const std::string notice =
      "For at least 1 test, Bi-Directional ITR was unable to be calculated for subject(s): 1.  You should delete these "
      "subjects before analysis.\n";
  Expect("--measures chkBi --clean c.csv --long 'D:\\Out\\l.csv' Ab.prm", 0, {kMaster, "C:\\c.csv", "D:\\Out\\l.csv"},
         WithoutOrder(4) + notice);
  EXPECT_EQ(
      Files.Get("C:\\c.csv"),
      "Subject,Sex,\"Age, then\",Bi-ITR(Tests 1 and 2),Not Computed\r\n1,m,old,,Bi-ITR(Tests 1 and 2): no recall to "
      "compute it from\r\n"
      "2,m,old,0,\r\n");
  EXPECT_TRUE(Files.Get("D:\\Out\\l.csv").ends_with("2,2,study,2,2,none,m,old\r\n2,2,recall,1,1,none,m,old\r\n"));

  const std::string written = Files.Native(kMaster).string() + "\n" + notice;
  const std::string measure = "\r\nBi-ITR(Tests 1 and 2),";
  const std::string tail = "n,Mean,SD,95% CI Low,95% CI High,Not Computed";
  Expect("--measures chkBi --means 'age, then,Sex' Ab.prm >../table", 0, {}, written);
  EXPECT_EQ(ReadFile(Files.Root() / "table"), "Measure,\"Age, then\",Sex," + tail + measure + "old,m,2,0,0,0,0,1" +
                                                  measure + "(all),(all),2,0,0,0,0,1\r\n");
  // What a further measure lacks is no 0.
  Expect("--measures chkBi --means '' --further Ab.prm >../table", 0, {}, written);
  EXPECT_THAT(ReadFile(Files.Root() / "table"), ::testing::HasSubstr("\r\nForwardItr(Tests 1 and 2),1,0,,,,1\r\n"));
  Expect("--measures chkBi --means '' --computed-only Ab.prm >../table", 0, {}, written);
  EXPECT_EQ(ReadFile(Files.Root() / "table"), "Measure," + tail + measure + "1,0,,,,1\r\n");
}

TEST_F(Command, SaysWhyThereIsNoMaster) {
  Expect("none/a.prm", 1, {},
         "Path not found.  Please verify that the correct disk is in the drive.\nReading 'C:\\none\\a.prm'\n");
  Files.Put("C:\\twice.dat", "1,2\n2,2\n");
  Expect("--serial-order twice.dat Ab.prm", 1, {}, "Position 2 is used twice.\nReading 'C:\\twice.dat'\n");
  Put("2", "3 2 | 2");
  Expect(
      "Ab.prm", 1, {kMaster},  // the first subject's row stays; its notice is not shown
      "Subscript out of range\n'C:\\Data\\Sdata\\AB Sub#2.dat'\nSubject 2: item 3 at position 1 of test 1 is outside 1 "
      "to 2.\n");
}

TEST_F(Command, MakesTheMasterOfTheSampleData) {
  Files.MakeDirectory("C:\\ZOVA");
  std::filesystem::copy(std::filesystem::path(ZOVA_DATA) / "Sample Data", Files.Native("C:\\ZOVA\\Sample Data"),
                        std::filesystem::copy_options::recursive);
  Expect("'C:\\ZOVA\\Sample Data\\Example.prm'", 0, {"C:\\ZOVA\\Sample Data\\Example Master.txt"}, "");
  const std::string master = Files.Get("C:\\ZOVA\\Sample Data\\Example Master.txt");
  EXPECT_EQ(std::count(master.begin(), master.end(), '\n'), 25) << "a header and 24 subjects";
}

}  // namespace
}  // namespace zova::testing

#endif
