// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/DirectoryBrowser.h"
#include "platform/desktop/Platform.h"
#include "project/wizard/WizardPages.h"

namespace zova {

/// The eight pages that define a project or show a loaded one. A page is checked when the user goes forward; nothing is
/// written before "Done!".
class NewProjectWizard {
 public:
  static constexpr int kPages = 8;

  explicit NewProjectWizard(const Platform& platform);

  /// Shows an empty page 1. `paramDir` is the directory of the parameter file.
  void Start(const std::string& paramDir);
  /// Likewise with the answers of a proposed project, which has no title yet.
  void Start(const std::string& paramDir, const ProjectParameters& proposal);
  /// Shows page 1 of `project`, read-only.
  void View(const ProjectParameters& project);

  [[nodiscard]] int Page() const noexcept { return m_page; }  ///< 1 to 8
  [[nodiscard]] bool IsViewing() const noexcept { return m_viewing; }
  [[nodiscard]] bool IsDefining() const noexcept { return !m_viewing; }
  [[nodiscard]] std::string Counter() const;  ///< "1 of 8"
  /// The answers on a page in short: "3 tests, 60 items". "" for a page that was not reached yet.
  [[nodiscard]] std::string Answer(int page) const;
  [[nodiscard]] bool CanGoBack() const noexcept { return m_page > 1; }
  [[nodiscard]] bool ShowsNext() const noexcept { return m_page < kPages; }
  [[nodiscard]] bool ShowsDone() const noexcept { return m_page == kPages; }

  [[nodiscard]] const WizardEntries& Entries() const noexcept { return m_state.Entries; }
  [[nodiscard]] const std::string& Text(WizardBox box) const;
  /// Drops characters that a file cannot hold. No effect while viewing; likewise below, unless stated otherwise.
  void SetText(WizardBox box, std::string_view text);
  [[nodiscard]] bool Option(WizardOption option) const { return m_state.Entries.Option(option); }
  void SetOption(WizardOption option, bool yes);
  void SetRated(int test, bool rated);  ///< test from 1 to kMaxTests
  /// "Copy Path": copies the browser's open directory into the primary or backup box.
  void CopyPath(WizardBox box);

  /// Whether the current answers require the box: the number of categories only in a categorised project.
  [[nodiscard]] bool Asks(WizardBox box) const;
  /// Whether pages 3 and 4 remark that the number of items includes lures and how lures are coded.
  [[nodiscard]] bool ShowsLuresIncluded() const noexcept;
  [[nodiscard]] bool ShowsLureNote() const noexcept;
  /// The number of tests on page 7, at most kMaxTests.
  [[nodiscard]] int TestCount() const noexcept;

  DirectoryBrowser& Browser() noexcept { return m_browser; }

  // The variable editor. Highlighting and Review also work while viewing.
  [[nodiscard]] const VariableEditor& Variables() const noexcept { return m_state.Entries.Variables; }
  void EnterVariableText();  ///< an empty text names nothing: a beep
  void HighlightVariable();
  void HighlightLevel(int label);
  void DeleteHighlighted();
  void AddVariable();
  void ReviewVariables();

  /// "Next >>" and "<<Back"; no checks while viewing.
  void Next();
  void Back();
  /// True, with all entries cleared, when the wizard is left: on page 1, while viewing, or after the question is
  /// answered by Yes.
  bool Cancel();
  /// "Done!" on page 8: true when the project was written, or when viewing ends. The wizard is then on an empty page 1,
  /// but Project keeps what was written.
  bool Done(bool restoring);
  [[nodiscard]] const ProjectParameters& Project() const noexcept { return m_state.Project; }

  /// The box that the cursor was last moved to; its text is selected.
  [[nodiscard]] WizardBox Cursor() const noexcept { return m_cursor; }
  /// Increases when the cursor moves.
  [[nodiscard]] int CursorRevision() const noexcept { return m_cursorRevision; }

 private:
  void Reset();
  /// Checks the open page.
  bool LeavesPage();
  void Arrive(int page);
  void PlaceCursor(WizardBox box);
  [[nodiscard]] WizardBox FirstBox() const;

  Platform m_platform;
  DirectoryBrowser m_browser;
  WizardState m_state;
  int m_page = 1;
  int m_reached = 1;  // the last page seen
  bool m_viewing = false;
  WizardBox m_cursor = WizardBox::Title;
  int m_cursorRevision = 0;
};

}  // namespace zova
