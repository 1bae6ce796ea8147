// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/DirectoryBrowser.h"
#include "platform/desktop/Platform.h"
#include "project/wizard/WizardPages.h"

namespace zova {

/// The eight pages on which a project is defined, or a loaded one is viewed. A page's answers are checked when it is
/// left forward; nothing is written before "Done!".
class NewProjectWizard {
 public:
  static constexpr int kPages = 8;

  explicit NewProjectWizard(const Platform& platform);

  /// An empty page 1. `paramDir` is where the parameter file will go.
  void Start(const std::string& paramDir);
  /// Page 1 of `project`, to be looked at only.
  void View(const ProjectParameters& project);

  [[nodiscard]] int Page() const noexcept { return m_page; }  ///< 1 to 8
  [[nodiscard]] bool IsViewing() const noexcept { return m_viewing; }
  [[nodiscard]] std::string Counter() const;  ///< "1 of 8"
  [[nodiscard]] bool CanGoBack() const noexcept { return m_page > 1; }
  [[nodiscard]] bool ShowsNext() const noexcept { return m_page < kPages; }
  [[nodiscard]] bool ShowsDone() const noexcept { return m_page == kPages; }

  [[nodiscard]] const WizardEntries& Entries() const noexcept { return m_state.Entries; }
  [[nodiscard]] const std::string& Text(WizardBox box) const;
  /// Drops what a file cannot hold. Like all that follow it does nothing while viewing, unless told otherwise.
  void SetText(WizardBox box, std::string_view text);
  [[nodiscard]] bool Option(WizardOption option) const { return m_state.Entries.Option(option); }
  void SetOption(WizardOption option, bool yes);
  void SetRated(int test, bool rated);  ///< test from 1 to kMaxTests
  /// "Copy Path": the browser's open directory into the primary or backup box.
  void CopyPath(WizardBox box);

  /// Whether a box means something with the answers that stand: the number of categories only when there are any.
  [[nodiscard]] bool Asks(WizardBox box) const;
  /// The remark that the number of items includes lures (page 3), and the one on how to code them (page 4).
  [[nodiscard]] bool ShowsLuresIncluded() const noexcept;
  [[nodiscard]] bool ShowsLureNote() const noexcept;
  /// How many boxes of tests page 7 shows, at most kMaxTests.
  [[nodiscard]] int TestCount() const noexcept;

  DirectoryBrowser& Browser() noexcept { return m_browser; }

  // The variable editor. Highlighting and Review work while viewing as well.
  [[nodiscard]] const VariableEditor& Variables() const noexcept { return m_state.Entries.Variables; }
  void EnterVariableText();
  void HighlightVariable();
  void HighlightLevel(int label);
  void DeleteHighlighted();
  void AddVariable();
  void ReviewVariables();

  /// "Next >>" and "<<Back", while viewing without checks.
  void Next();
  void Back();
  /// True when the wizard is to be left: on page 1, while viewing, or after the question was answered by Yes. Then all
  /// entries are cleared.
  bool Cancel();
  /// "Done!" on page 8: true when the project was written to its places, or a viewing ends. Then the wizard stands on
  /// an empty page 1, but Project keeps what was written.
  bool Done(bool restoring);
  [[nodiscard]] const ProjectParameters& Project() const noexcept { return m_state.Project; }

  /// Where the cursor has to stand after the last action of this kind, its text selected.
  [[nodiscard]] WizardBox Cursor() const noexcept { return m_cursor; }
  /// Grows whenever the cursor was placed anew.
  [[nodiscard]] int CursorRevision() const noexcept { return m_cursorRevision; }

 private:
  void Reset();
  /// The check of the open page.
  bool LeavesPage();
  void Arrive(int page);
  void PlaceCursor(WizardBox box);
  [[nodiscard]] WizardBox FirstBox() const;

  Platform m_platform;
  DirectoryBrowser m_browser;
  WizardState m_state;
  int m_page = 1;
  bool m_viewing = false;
  WizardBox m_cursor = WizardBox::Title;
  int m_cursorRevision = 0;
};

}  // namespace zova
