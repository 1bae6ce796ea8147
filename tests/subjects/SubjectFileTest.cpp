// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectFile.h"

#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "scoring/Examples.h"
#include "subjects/SubjectFiles.h"
#include "support/Scratch.h"

using namespace zova;
using namespace zova::testing;

namespace {

const std::string kHeader =
    "\"Subject#\",\"12\",\"n, Item #(recall order), Min(recall order), Rating(recall order)\",\"*\"\r\n";
const std::string kLists = "\"Group\",2\r\n1,5,1,3\r\n2,2,1,4\r\n3,0,0,0\r\n1,5,2,3\r\n2,0,0,0\r\n3,0,0,0\r\n";
const std::string kExample = kHeader + kLists;

ProjectParameters GroupProject(const std::string& marker = "VB Version") {
  ProjectParameters project = MakeProject({.Items = 3, .Minutes = 9, .MaxRating = 7, .Variables = {"Group"}});
  project.Abbreviation = "Exp";
  project.FormatMarker = marker;
  return project;
}

SubjectRecord ExampleSubject(bool rated = true) {
  SubjectRecord record;
  record.SubjectId = "12";
  record.Levels[0] = 2;
  record.Lists = MakeLists(GroupProject(), rated ? "5/1/3 2/1/4 | 5/2/3" : "5/1 2/1 | 5/2");
  return record;
}

// What an earlier subject left; only the identifier may shine through a read.
SubjectRecord Used() {
  SubjectRecord record = ExampleSubject();
  record.Levels.fill(9);
  record.Lists.Reset(1, 1);
  record.Lists.At(1, 1) = {8, 7, 6};
  return record;
}

SubjectRecord Parsed(std::string_view bytes, const ProjectParameters& project = GroupProject()) {
  SubjectRecord record = Used();
  ParseSubject(bytes, project, record);
  return record;
}

template <typename Parse>
void ExpectBlankAfterFault(Parse&& parse, const std::string& bytes) {
  SubjectRecord record = Used();
  EXPECT_THROW(parse(bytes, GroupProject(), record), FieldError) << bytes;
  SubjectRecord blank;
  ResetLists(blank, GroupProject());
  EXPECT_EQ(record.Lists, blank.Lists) << bytes;
  EXPECT_EQ(record.Levels, blank.Levels) << bytes;
}

}  // namespace

TEST(SubjectFile, WritesAndReadsTheExamples) {
  EXPECT_EQ(FormatSubject(ExampleSubject(), GroupProject()), kExample);
  EXPECT_EQ(Parsed(kExample), ExampleSubject());
  ProjectParameters items = GroupProject();
  items.MinutesRecorded = items.Rated = 0;
  EXPECT_EQ(FormatSubject(ExampleSubject(), items),
            kHeader + "\"Group\",2\r\n1,5,0,0\r\n2,2,0,0\r\n3,0,0,0\r\n1,5,0,0\r\n2,0,0,0\r\n3,0,0,0\r\n");
  const std::string threeNumbers = kHeader + "\"Group\",2\r\n1,5,1\r\n2,2,1\r\n3,0,0\r\n1,5,2\r\n2,0,0\r\n3,0,0\r\n";
  for (const char* marker : {"Old ZOVA", "old zova"}) {
    EXPECT_EQ(FormatSubject(ExampleSubject(), GroupProject(marker)), threeNumbers) << marker;
    EXPECT_EQ(Parsed(threeNumbers, GroupProject(marker)), ExampleSubject(false)) << marker;
  }
  SubjectRecord record = ExampleSubject();
  record.Lists.At(1, 1) = {0, 3, 1};  // a blank between items stays where it is
  record.Lists.At(1, 3) = {32767, -32768, 9999};
  record.Lists.At(2, 1) = {-4, 10000, -1};
  record.Lists.RecallCount(2) = 0;
  EXPECT_EQ(Parsed(FormatSubject(record, GroupProject())), record);
}

TEST(SubjectFile, ReadsForeignFormsAsAStream) {
  std::string lineFeeds, returns, oneLine;
  for (const char c : kLists) {
    if (c != '\r') lineFeeds += c;
    if (c != '\n') returns += c;
    if (c != '\r') oneLine += c == '\n' ? ',' : c;
  }
  for (const std::string& bytes :
       {"\"an unclosed, foreign header\r\n" + kLists, "\n" + lineFeeds, "h\r" + returns, "h\n" + oneLine,
        kExample + "3,77,7,7\r\nmore", "\xEF\xBB\xBF" + kExample + "\x1A\xFF", "M\xFCller\r\n" + kLists,
        std::string("h\n any, 1.6 \n x,5abc,\"1\",3e2\n,2.5,.9, 4\n,,x,\"\"\n1, +5,2.5,3\n2,-0,0,0\n3,-.5,0,0")}) {
    EXPECT_EQ(Parsed(bytes), ExampleSubject()) << bytes;
  }
}

TEST(SubjectFile, LeavesABlankRecordAfterAFault) {
  for (std::size_t length = 0; length < kExample.size() - 2; ++length) {
    ExpectBlankAfterFault(ParseSubject, kExample.substr(0, length));
  }
  EXPECT_EQ(Parsed(kExample.substr(0, kExample.size() - 2)), ExampleSubject()) << "the last line needs no end";
  const std::string autosave = FormatAutosave(ExampleSubject(), GroupProject());
  for (const std::string& bad :
       {std::string("3,0,0,32768"), std::string("3,0,0,0\0", 8), std::string("3,0,0,\xFF\xFE"), std::string("3,0,0")}) {
    ExpectBlankAfterFault(ParseSubject, kExample.substr(0, kExample.size() - 9) + bad);
    ExpectBlankAfterFault(ParseAutosave, autosave.substr(0, autosave.size() - 9) + bad);
  }
  std::string wide = kExample;  // in a line with others after it
  ExpectBlankAfterFault(ParseSubject, wide.replace(wide.find("1,5,1,3"), 7, "1,5,1,32768"));

  Scratch scratch;
  scratch.Put("C:\\a.dat", kHeader + "\"Group\",2\r\n1,5,1,3\r\n2,2,99999,4\r\n");
  SubjectRecord record;
  try {
    LoadSubjectFile(scratch.Files, "C:\\a.dat", GroupProject(), record);
    FAIL() << "a faulty file was read";
  } catch (const FileError& error) {
    EXPECT_EQ(error.Cause(), FileCause::System);
    EXPECT_EQ(error.Path() + error.Detail(), "C:\\a.datLine 4: number beyond the 16-bit range.");
  }
}

TEST(SubjectFile, KeepsTheAutosave) {
  Scratch scratch;
  SubjectRecord record = ExampleSubject();
  record.SubjectId = "M\xC3\xBCller, a name that nobody could type.";
  WriteAutosaveFile(scratch.Files, "C:\\", record, GroupProject());
  EXPECT_EQ(scratch.Get("C:\\Temp.txt"), "\"Study.prm\"\r\n\"" + record.SubjectId + "\"\r\n" + kLists);
  scratch.Put("C:\\Temp.txt", scratch.Get("C:\\Temp.txt") + "4,0,0,0\r\n");
  SubjectRecord again = Used();
  ReadAutosaveFile(scratch.Files, "C:\\Temp.txt", GroupProject(), again);
  EXPECT_EQ(again, record);
  EXPECT_EQ(ReadAutosaveProject(scratch.Files, "C:\\Temp.txt"), "Study.prm");
  for (int times = 0; times < 2; ++times) DeleteAutosaveFile(scratch.Files, "C:\\");  // the second has nothing to do
  EXPECT_FALSE(scratch.Has("C:\\Temp.txt"));
}

TEST(SubjectFile, PutsThreeAutosavesAsideAndEveryOneThatCannotBeRestored) {
  SubjectRecord record = ExampleSubject();
  int n = 0;
  for (bool failed = true; failed; ++n) {
    failed = n == 0;
    Scratch scratch;
    scratch.Put("C:\\Study.prm", FormatProject(GroupProject(), kCurrentMarker));
    for (const char subject : {'a', '?', 'b', 'c', 'd'}) {
      if (n > 0 && subject == 'c') break;
      record.SubjectId = subject;
      scratch.Put("C:\\Temp.txt", FormatAutosave(record, GroupProject()).substr(0, subject == '?' ? 20 : 999));
      scratch.Faults.FailAt(subject == 'b' ? n : 0, std::errc::io_error, FailingFileLayer::Writes::Half);
      try {
        EXPECT_EQ(KeepAutosaveFile(scratch.Files, "C:\\"), "C:\\Temp 1.txt");
        failed |= scratch.Faults.HasFailed();  // one that stops nothing
      } catch (const FileError&) {
        failed = true;
        scratch.Faults.FailNever();
        EXPECT_EQ(KeepAutosaveFile(scratch.Files, "C:\\"), "C:\\Temp 1.txt");
      }
    }
    std::string kept;
    for (int number = 1; scratch.Has(KeptAutosavePath("C:\\", number)); ++number) {
      kept += scratch.Get(KeptAutosavePath("C:\\", number)).substr(14, 1);
    }
    EXPECT_EQ(kept, n > 0 ? "b?a" : "dcb?") << n;
    EXPECT_FALSE(scratch.Has("C:\\Temp.txt"));
  }
  EXPECT_GT(n, 40);
}

TEST(SubjectFile, IsNamedByTheMarker) {
  EXPECT_EQ(SubjectFileName(GroupProject("VB Version"), "12"), "Exp Sub#12.dat");
  EXPECT_EQ(SubjectFileName(GroupProject("VB Backup"), "12"), "Exp Sub#12.dat");
  EXPECT_EQ(SubjectFileName(GroupProject("Old ZOVA"), "a b"), "Expa b.dat");
  const std::tuple<const char*, const char*, const char*> ids[] = {{"VB Version", "C:\\x\\eXP sUB#a1.DAT", "a1"},
                                                                   {"VB Version", "Exper Sub#1.dat", "Exper Sub#1"},
                                                                   {"VB Version", "dat", ""},
                                                                   {"Old ZOVA", "EXP Sub#12.dat", " Sub#12"}};
  for (const auto& [marker, name, id] : ids) EXPECT_EQ(SubjectIdFromFileName(GroupProject(marker), name), id) << name;
}
