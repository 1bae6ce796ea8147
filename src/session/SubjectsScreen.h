// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop/Platform.h"
#include "subjects/table/SubjectChanges.h"
#include "subjects/table/SubjectTable.h"

namespace zova {

/// The screen of all subjects of a project: the table, and what is done with the chosen ones.
class SubjectsScreen {
 public:
  /// What is asked for below the table.
  enum class Question { None, Levels, Name, Sample };

  explicit SubjectsScreen(const Platform& platform) : m_platform(platform) {}
  /// Called when the progress of a long run changes.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  /// `project` must outlive the screen. Read fills the table.
  void Open(const ProjectParameters& project);
  void Close();
  [[nodiscard]] bool IsOpen() const noexcept { return m_project != nullptr; }
  /// Reads all subjects. Filter, order and choice stay.
  void Read();

  [[nodiscard]] const SubjectTable& Table() const noexcept { return m_table; }
  /// Increases when the table's lines, or which of them are chosen, change by another act than Choose.
  [[nodiscard]] int Revision() const noexcept { return m_revision; }
  [[nodiscard]] std::string StatusLine() const;
  void SetFilter(const std::string& filter);
  void SortBy(std::size_t column);

  void Choose(const std::vector<std::size_t>& lines);
  [[nodiscard]] std::vector<std::size_t> ChosenLines() const;

  /// The one subject that can be opened; nullptr when none or several are chosen.
  [[nodiscard]] const SubjectRow* ToOpen() const;
  /// The one subject whose entries can be compared.
  [[nodiscard]] const SubjectRow* ToCompare() const;
  [[nodiscard]] bool MayChangeLevels() const;
  [[nodiscard]] bool MayRename() const { return m_chosen.size() == 1 && MayRemove(); }
  [[nodiscard]] bool MayRemove() const;
  [[nodiscard]] bool MayBringBack() const;

  [[nodiscard]] Question Asked() const noexcept { return m_question; }
  [[nodiscard]] std::string QuestionText() const;
  void AskLevels();
  void AskName();
  /// How many percent are to be entered a second time.
  void AskSample();
  void CancelQuestion();
  /// Does what was asked for. The question stays after a refusal.
  void Answer();
  /// The names of a variable's levels, the first for levels that stay as they are.
  [[nodiscard]] std::vector<std::string> LevelChoices(std::size_t variable) const;
  [[nodiscard]] int ChosenLevel(std::size_t variable) const { return m_levels[variable]; }
  void ChooseLevel(std::size_t variable, int level) { m_levels[variable] = static_cast<std::int16_t>(level); }
  /// The text of the question's box: an identifier, or a percentage and perhaps a seed.
  [[nodiscard]] const std::string& NewName() const noexcept { return m_newName; }
  void SetNewName(const std::string& text);

  void Remove();
  void BringBack();
  /// The text for the clipboard.
  std::string Copy();
  void Export();
  /// Saves how far first and second entries agree.
  void SaveReport();

 private:
  using Key = std::pair<bool, std::string>;  // removed or not, and the file's name
  static Key KeyOf(const SubjectRow& row);
  [[nodiscard]] std::vector<const SubjectRow*> Chosen() const;
  template <typename Fits>
  [[nodiscard]] bool AllChosen(Fits&& fits) const;
  template <typename Plan>
  std::size_t ChangeEach(const char* doing, Plan&& plan);
  bool Change(SubjectPlaces& places, const std::function<ChangePlan()>& plan);
  [[nodiscard]] std::set<std::string, std::less<>> SampledIds();
  void Rename();
  void DrawSample();
  void Save(const char* title, const std::string& name, const std::function<std::string()>& text);
  void ShowProgress(const std::string& text);
  void EndQuestion();

  Platform m_platform;
  std::function<void()> m_observer;
  const ProjectParameters* m_project = nullptr;
  SubjectTable m_table;
  std::set<Key> m_chosen;
  Question m_question = Question::None;
  NewLevels m_levels{};
  std::string m_newName;  // or the percentage, and a seed
  bool m_sampleIsTold = false;
  std::uint32_t m_seed = 0;
  std::string m_progress;
  std::string m_done;  // what the last act did
  int m_revision = 0;
};

}  // namespace zova
