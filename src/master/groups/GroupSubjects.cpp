// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/GroupSubjects.h"

#include "platform/desktop/FileErrorBoxes.h"
#include "subjects/SubjectReader.h"

namespace zova {

std::vector<std::int16_t> GroupSubjects::LevelsOf(std::optional<std::size_t> variable) const {
  std::vector<std::int16_t> levels(Levels.size(), 0);
  if (!variable) return levels;
  for (std::size_t subject = 0; subject < levels.size(); ++subject) levels[subject] = Levels[subject][*variable];
  return levels;
}

std::optional<GroupSubjects> ReadGroupSubjects(const ProjectParameters& project, int subjectFileCount, bool withLevels,
                                               const Platform& platform) {
  SubjectReader reader(project, platform.Files, platform.Bar);
  if (!WithRetry(platform.Boxes, [&] { reader.List(subjectFileCount); })) return std::nullopt;
  GroupSubjects subjects;
  SubjectRecord record;
  for (int k = 1; k <= subjectFileCount; ++k) {
    bool isInOrder = true;
    const auto read = [&] {
      if (withLevels || k > reader.Count()) isInOrder = reader.Read(k, record);
    };
    if (!WithRetry(platform.Boxes, read)) return std::nullopt;
    if (!isInOrder) {
      subjects = {};
      k = 0;
      continue;
    }
    subjects.FileNames.push_back(reader.Name(k));
    subjects.SubjectIds.push_back(reader.SubjectId(k));
    subjects.Levels.push_back(record.Levels);
  }
  return subjects;
}

}  // namespace zova
