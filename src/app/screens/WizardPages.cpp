// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/WizardPages.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <array>

#include "app/screens/VariableEditorPanel.h"
#include "app/widgets/Controls.h"
#include "app/widgets/DriveDirectoryList.h"

// The access keys of a page are letters that neither the menus (F, O, P, T, H) nor the wizard's own buttons (B, N, C,
// D) have.
namespace zova {

namespace {

WizardPage* MakeTitlePage(NewProjectWizard& wizard) {
  auto* page = new WizardPage(wizard, 1, "Project Title");
  page->AddBox(WizardBox::Title, "lblExp", "&What would you like to title this project?", "txtExp");
  page->AddText("lblExpNote",
                "NOTE:  It is recommended that you title it something meaningful.  "
                "For instance:  'False Memory Exp Spring 1997'",
                WizardPage::kWhenDefining);
  return page;
}

class DirectoriesPage final : public WizardPage {
 public:
  explicit DirectoriesPage(NewProjectWizard& wizard)
      : WizardPage(wizard, 2, "Where to save the data."),
        m_lists(new DriveDirectoryList(wizard.Browser(), "drvPath1", "dirPath1")) {
    AddText("lblPaths",
            "You must set a primary location to save the data. It is recommended that you also save "
            "the data to a backup location.",
            kWhenDefining);
    m_lists->SetLabels("lblDrive1", "Dri&ve", "lblDir1", "D&irectory");
    Rows()->addWidget(m_lists, 1);
    connect(m_lists, &DriveDirectoryList::Acted, this, &WizardPage::Acted);
    auto* grid = new QGridLayout;
    Rows()->addLayout(grid);
    m_cmdPath1 = MakeButton("cmdPath1", "Cop&y Path");
    AddRow(*grid, MakeBox(WizardBox::Primary, "lblPath1", "Pri&mary:", "txtPath1"), m_cmdPath1);
    m_cmdPath2 = MakeButton("cmdPath2", "&Copy Path");
    AddRow(*grid, MakeBox(WizardBox::Backup, "lblPath2", "Bac&kup:", "txtPath2"), m_cmdPath2);
  }

  void Refresh() override {
    WizardPage::Refresh();
    m_lists->Refresh();
    for (QWidget* control : std::initializer_list<QWidget*>{m_lists, m_cmdPath1, m_cmdPath2}) {
      control->setEnabled(!Wizard().IsViewing());
      control->setVisible(!Wizard().IsViewing());
    }
  }

  [[nodiscard]] QWidget* ControlOf(WizardBox box) const override {
    return box == WizardBox::DriveList ? m_lists->DriveList() : WizardPage::ControlOf(box);
  }

 private:
  void AddRow(QGridLayout& grid, const TextBox& path, QPushButton* copy) {
    const int row = grid.rowCount();
    path.Label->setWordWrap(false);
    grid.addWidget(path.Label, row, 0);
    grid.addWidget(path.Edit, row, 1);
    grid.addWidget(copy, row, 2);
    copy->setAccessibleDescription(path.Label->text().remove(QLatin1Char('&')));
    connect(copy, &QPushButton::clicked, this, [this, box = path.Box] {
      Wizard().CopyPath(box);
      emit Acted();
    });
  }

  DriveDirectoryList* m_lists;
  QPushButton* m_cmdPath1;
  QPushButton* m_cmdPath2;
};

WizardPage* MakeGeneralPage(NewProjectWizard& wizard) {
  auto* page = new WizardPage(wizard, 3, "General Info");
  page->AddBox(WizardBox::Tests, "lblTests", "How &many tests were given to each subject?", "txtTests");
  page->AddBox(WizardBox::Items, "lblItemmax", "How many study &items were there?", "txtItemmax");
  page->AddText("lblLuresIncluded", "(Note: Critical Non-Presented Items were included)",
                &NewProjectWizard::ShowsLuresIncluded);
  return page;
}

WizardPage* MakeCategoriesPage(NewProjectWizard& wizard) {
  auto* page = new WizardPage(wizard, 4, "Categories");
  page->AddOptions(WizardOption::Categorized, "lblCat", "Are the List items categorized?", "optcatyes", "optCatNo");
  page->AddBox(WizardBox::Categories, "lblCategories", "How many cate&gories were there?", "txtCategories");
  page->AddOptions(WizardOption::FalseMemory, "lblFalsemem", "Is this a false memory experiment?", "optFalsemem",
                   "optFalseno", WizardBox::Categories);
  page->AddText("lblNote",
                "Note:  Be sure your coding scheme is set up such that the last member of each category "
                "is the critical non-presented item.",
                &NewProjectWizard::ShowsLureNote);
  return page;
}

WizardPage* MakeMinutesPage(NewProjectWizard& wizard) {
  auto* page = new WizardPage(wizard, 6, "Minute Data");
  page->AddOptions(WizardOption::Minutes, "lblMin", "Do you want to keep track of minutes data?", "optMinyes",
                   "optMinno");
  page->AddBox(WizardBox::Minutes, "lblMinMax", "How &many minutes were given per test?", "txtMinMax");
  return page;
}

class RatingsPage final : public WizardPage {
 public:
  explicit RatingsPage(NewProjectWizard& wizard) : WizardPage(wizard, 7, "Ratings") {
    AddOptions(WizardOption::Ratings, "lblRate", "Would you like to enter rating data?", "optRateyes", "optRateno");
    AddBox(WizardBox::MaxRating, "lblRatemax", "What is the &maximum rating allowed?", "txtRatemax");
    m_lblRating = AddText("lblRating",
                          "Please check the tests for which ratings were taken.  Click "
                          "the 'Next' button when finished.",
                          kWhenDefining);
    auto* grid = new QGridLayout;
    Rows()->addLayout(grid);
    grid->setColumnStretch(kColumns, 1);
    for (int test = 1; test <= kMaxTests; ++test) {
      auto* box = new QCheckBox(QStringLiteral("Test %1").arg(test));
      box->setObjectName(QStringLiteral("chkRating%1").arg(test));
      grid->addWidget(box, (test - 1) / kColumns, (test - 1) % kColumns);
      m_chkRating.at(static_cast<std::size_t>(test - 1)) = box;
      connect(box, &QCheckBox::toggled, this, [this, test](bool rated) { StoreRated(test, rated); });
    }
  }

  void Refresh() override {
    WizardPage::Refresh();
    const bool asked = Wizard().Asks(WizardBox::RatedTests);
    m_lblRating->setEnabled(asked);
    int test = 0;
    for (QCheckBox* box : m_chkRating) {
      ++test;
      box->setChecked(IsRated(test));
      box->setVisible(test <= Wizard().TestCount());
      box->setEnabled(asked && !Wizard().IsViewing());
      KeepReadable(box, asked && Wizard().IsViewing());
    }
  }

  [[nodiscard]] QWidget* ControlOf(WizardBox box) const override {
    return box == WizardBox::RatedTests ? m_chkRating.front() : WizardPage::ControlOf(box);
  }

 private:
  static constexpr int kColumns = 5;

  [[nodiscard]] bool IsRated(int test) const {
    return Wizard().Entries().RatedTests.at(static_cast<std::size_t>(test - 1));
  }
  void StoreRated(int test, bool rated) {
    if (IsRated(test) == rated) return;  // Refresh shows it
    Wizard().SetRated(test, rated);
    emit Acted();  // while viewing, Refresh reverts it
  }

  QLabel* m_lblRating;
  std::array<QCheckBox*, kMaxTests> m_chkRating{};
};

WizardPage* MakeAbbreviationPage(NewProjectWizard& wizard) {
  auto* page = new WizardPage(wizard, 8, "Project Abbreviation");
  page->AddText("lblAbbr",
                "In order for ZOVA to work properly, it will need to store and retrieve data specific "
                "to this experiment.  To accomplish this ZOVA will store information relative to this "
                "experiment with a prefix.  Please specify the prefix you would like ZOVA to use (20 "
                "character max).  The default is to use the first 20 characters of the title.",
                WizardPage::kWhenDefining);
  const auto prefix =
      page->MakeBox(WizardBox::Abbreviation, "lblAbbrPrompt", "Please &enter prefix here -------->", "txtAbbr");
  prefix.Label->setWordWrap(false);
  FitBox(prefix.Edit, 20);
  auto* row = new QHBoxLayout;
  row->addWidget(prefix.Label);
  row->addWidget(prefix.Edit);
  row->addStretch();
  page->Rows()->addLayout(row);
  return page;
}

}  // namespace

std::vector<WizardPage*> MakeWizardPages(NewProjectWizard& wizard) {
  return {MakeTitlePage(wizard),      new DirectoriesPage(wizard),     MakeGeneralPage(wizard),
          MakeCategoriesPage(wizard), new VariableEditorPanel(wizard), MakeMinutesPage(wizard),
          new RatingsPage(wizard),    MakeAbbreviationPage(wizard)};
}

}  // namespace zova
