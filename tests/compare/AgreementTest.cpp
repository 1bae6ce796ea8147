// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/Agreement.h"

#include "compare/EntryPairs.h"
#include "support/FakePlatform.h"
#include "support/Study.h"

namespace zova::testing {
namespace {

TEST(Kappa, IsThatOfPublishedExamples) {
  struct Case {
    std::vector<std::vector<std::int64_t>> Table;
    double Value;
    double Error;  ///< standard error, to the digits published
  };
  const Case cases[] = {// J. L. Fleiss, Statistical Methods for Rates and Proportions, 2nd ed. (1981), table 13.1:
                        // kappa .68; its s.e. there is .087
                        {{{75, 1, 4}, {5, 4, 1}, {0, 0, 10}}, 0.6765, 0.0877},
                        // The same formula in another program
                        {{{20, 5}, {10, 15}}, 0.4, 0.1270},
                        {{{10, 0}, {0, 10}}, 1, 0}};
  for (const auto& [table, value, error] : cases) {
    const auto kappa = KappaOf(table);
    ASSERT_TRUE(kappa);
    EXPECT_NEAR(kappa->Value, value, 0.0001);
    EXPECT_NEAR((kappa->Value - kappa->Low) / 1.959964, error, 0.0005);
  }
  EXPECT_FALSE(KappaOf({{7, 0}, {0, 0}}));
  EXPECT_FALSE(KappaOf({{0, 0}, {0, 0}}));
}

// "s" is settled: its first entry as typed lies in Second\First.
TEST(AgreementReport, CountsTheEntriesAsTyped) {
  Study study({.Tests = 1, .Items = 4, .Minutes = 2, .Variables = {"Age"}});
  study.Project.LevelCounts[0] = 2;
  study.Project.LevelNames[0] = {"young", "old"};
  study.Put("a", "1/1 2/1 3/2", 1);
  study.PutFile("Second\\AB Sub#a.dat", study.Subject("1/1 2/1 3/2", 1));
  study.Put("s", "1/1 2/1", 2);
  study.PutFile("Second\\First\\AB Sub#s.dat", study.Subject("1/1 4/1", 2));
  study.PutFile("Second\\AB Sub#s.dat", study.Subject("1/2 2/1 3/1", 1));
  study.Put("alone", "1/1", 1);
  RecordingProgress bar;
  AgreementReport report(study.Project);
  const PairSink add = [&](std::string_view id, const SubjectRecord& first, const SubjectRecord& second) {
    report.Add(id, first, second);
  };
  ReadSecondEntries(study.Project, study.OfFiles, bar, add);
  // Of "s": one minute, 4 for 2, the third line, the level; items 2, 3 and 4 of four.
  const std::string s = "4,7,2,28.5714285714286,1,1,2,0,25,-0.5,";
  const std::string text = report.CsvText();
  EXPECT_EQ(text.substr(0, text.find('\n') + 1),
            "part,name,subjects,differences,cells,agreeing cells,agreeing cells %,recalled in both,in first alone,"
            "in second alone,in none,agreeing items %,kappa,kappa low,kappa high\r\n");
  for (const std::string line :
       {"\nall,,2,4,14,9,64.2857142857143,4,1,2,1,62.5,", "\ntest,Test 1,2,3,12,8,",
        "\nlevel,Age: young,1,0,7,7,100,3,0,0,1,100,1,1,1\r", "\nlevel,Age: old,1,", "\nsubject,s,1,4,7,2,"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;
  }
  EXPECT_LT(text.find("\nsubject,s,"), text.find("\nsubject,a,")) << "who differs most stands first";
  EXPECT_NE(text.find(s), std::string::npos) << text;
  study.OfFiles.Delete("C:\\Data\\Sdata\\AB Sub#s.dat");
  AgreementReport withoutData(study.Project);
  ReadSecondEntries(study.Project, study.OfFiles, bar,
                    [&](std::string_view id, const SubjectRecord& first, const SubjectRecord& second) {
                      withoutData.Add(id, first, second);
                    });
  EXPECT_EQ(withoutData.CsvText(), text) << "both entries of \"s\" are there";
  study.Files.Put("D:\\Other\\AB Sub#a.dat", study.Subject("1/1", 1));
  study.Files.Put("D:\\Other\\AB Sub#b.dat", "");
  study.Files.Put("D:\\Other\\ab sub#ALONE.dat", "");
  AgreementReport with(study.Project);
  const PassedOver passedOver = ReadPairsWith("D:\\Other", study.Project, study.OfFiles, bar,
                                              [&](std::string_view id, const SubjectRecord& first,
                                                  const SubjectRecord& second) { with.Add(id, first, second); });
  EXPECT_EQ(passedOver.Alone, (std::vector<std::string>{"Only one directory has 'AB Sub#b.dat'.",
                                                        "Only one directory has 'AB Sub#s.dat'."}));
  EXPECT_EQ(passedOver.Faults,
            std::vector<std::string>{"Reading 'D:\\Other\\ab sub#ALONE.dat'\nLine 1: input past end of file."});
  EXPECT_NE(with.CsvText().find("\nsubject,a,1,2,7,3,"), std::string::npos) << with.CsvText();
}

}  // namespace
}  // namespace zova::testing
