// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/Platform.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// The screen that identifies a subject. It asks for a new subject's identifier (step 1) and level of each variable
/// (steps 2 to V+1), likewise for a complete subject that is entered a second time, and for an existing subject's
/// identifier or file.
class SubjectIdentification {
 public:
  enum class Purpose { NewSubject, OldData, Unfinished, SecondEntry };
  enum class Box { Subject, Level };
  enum class Outcome { Stay, OpenEntry };

  SubjectIdentification(SubjectRecord& record, const Platform& platform) : m_record(record), m_platform(platform) {}

  /// Step 1 with empty boxes. `project` must outlive the screen.
  void Open(Purpose purpose, const ProjectParameters& project, const std::string& paramDir);
  /// Empties the boxes; the record stays.
  void Leave();

  [[nodiscard]] Purpose CurrentPurpose() const noexcept { return m_purpose; }
  [[nodiscard]] std::string Heading() const;      ///< "Subject Information", "Read Old Data" or "Unfinished Business"
  [[nodiscard]] std::string Instruction() const;  ///< "" for a new subject
  [[nodiscard]] std::string Counter() const;      ///< "1 of 3"
  [[nodiscard]] bool AsksIdentifier() const noexcept { return m_step == 1; }
  /// The levels of the current variable, one per line; "" on step 1.
  [[nodiscard]] std::string LevelsList() const;
  /// Their names, the first that of level 1; empty on step 1.
  [[nodiscard]] std::vector<std::string> LevelNames() const;
  /// The level in the box, from 1; 0 for none.
  [[nodiscard]] int ChosenLevel() const;
  [[nodiscard]] bool CanGoBack() const noexcept { return m_step > 1; }
  [[nodiscard]] bool CanGoNext() const noexcept { return m_step < Steps(); }
  [[nodiscard]] bool CanFinish() const noexcept { return !LooksForExisting() && m_step == Steps(); }
  [[nodiscard]] bool LooksForExisting() const noexcept {
    return m_purpose == Purpose::OldData || m_purpose == Purpose::Unfinished;
  }

  [[nodiscard]] const std::string& SubjectText() const noexcept { return m_subjectText; }
  /// Drops characters that an identifier cannot contain.
  void SetSubjectText(const std::string& text);
  [[nodiscard]] const std::string& LevelText() const noexcept { return m_levelText; }
  void SetLevelText(const std::string& text) { m_levelText = text; }

  /// No effect unless CanGoNext or CanGoBack. Back keeps a valid level, too. Next opens a second entry that was put
  /// aside.
  Outcome Next();
  void Back();
  /// "Done!" for a new subject or a second entry: OpenEntry with an empty record, or with a second entry put aside.
  Outcome Finish();
  /// "OK" and "Browse" for an existing one: OpenEntry with the record loaded, or Stay with the record still blank.
  /// Browse also takes the project's autosave files that were put aside in the Param directory.
  Outcome LoadTyped();
  Outcome Browse();
  /// The subject of a file of the directory that LoadTyped looks in, by its name as listed.
  Outcome LoadListed(const std::string& file);

  [[nodiscard]] Box Cursor() const noexcept { return m_step == 1 ? Box::Subject : Box::Level; }
  /// Increases when the cursor moves; the box's text is then selected.
  [[nodiscard]] int CursorRevision() const noexcept { return m_cursorRevision; }

 private:
  [[nodiscard]] int Steps() const noexcept { return LooksForExisting() ? 1 : 1 + m_project->VariableCount; }
  bool StoreLevel();  // false when the box holds no level of the variable
  bool AcceptBox();
  Outcome GoTo(int step);
  std::optional<Outcome> BeginSecondEntry();
  Outcome StayInBox();
  Outcome Refuse(const std::string& text, const std::string& details = {});
  [[nodiscard]] std::string Directory() const;
  [[nodiscard]] std::string ListedName(const std::string& directory) const;
  [[nodiscard]] bool IsUnfinished() const;
  [[nodiscard]] bool IsAutosave(const std::string& path) const;
  bool MayReplaceComplete(const std::string& subjectId, SubjectRecord& record);
  Outcome Load(const std::string& path, const std::string& subjectId, bool& endedEarly);
  Outcome LoadAutosave(const std::string& path, bool& endedEarly);

  SubjectRecord& m_record;
  Platform m_platform;
  const ProjectParameters* m_project = nullptr;
  std::string m_paramDir;
  Purpose m_purpose = Purpose::OldData;  // one step, before there is a project
  int m_step = 1;
  std::string m_subjectText;
  std::string m_levelText;
  int m_cursorRevision = 0;
};

}  // namespace zova
