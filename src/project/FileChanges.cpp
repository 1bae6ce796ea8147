// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/FileChanges.h"

#include <algorithm>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"
#include "text/Encoding.h"
#include "text/LeadingNumber.h"

namespace zova {

namespace {

constexpr std::string_view kHeading = "ZOVA changes";
constexpr std::string_view kPrimary = "primary/";
constexpr std::string_view kBackup = "backup/";
constexpr std::string_view kNoContent = "none";
constexpr std::string_view kEnd = "end";

using Content = std::optional<std::string>;

void AppendContent(std::string& text, const Content& content) {
  text.append(content ? std::to_string(content->size()) : std::string(kNoContent)).append("\n");
  if (content) text.append(*content).append("\n");
}

// Reads a journal's text from its beginning; `IsWhole` is false from the first fault on.
class JournalReader {
 public:
  explicit JournalReader(std::string_view text) : m_text(text) {}

  std::string Line() {
    const std::size_t end = m_text.find('\n');
    IsWhole = IsWhole && end != std::string_view::npos;
    return IsWhole ? Take(end) : std::string();
  }
  Content NextContent() {
    const std::string length = Line();
    if (length == kNoContent) return std::nullopt;
    std::size_t size = 0;
    IsWhole = IsWhole && !length.empty() && length.size() < 10 && IsDigits(length);
    if (IsWhole) size = std::stoul(length);
    IsWhole = IsWhole && size < m_text.size() && m_text[size] == '\n';
    return IsWhole ? Content(Take(size)) : std::nullopt;
  }

  bool IsWhole = true;

 private:
  std::string Take(std::size_t size) {
    std::string taken(m_text.substr(0, size));
    m_text.remove_prefix(size + 1);
    return taken;
  }

  std::string_view m_text;
};

// A journal may come with a project from elsewhere: it changes nothing outside the project's directories.
bool StaysBelow(std::string_view names) {
  if (!CanStandBelow(names)) return false;
  const std::vector<std::string_view> parts = PathComponents(names);
  return !parts.empty() && std::none_of(parts.begin(), parts.end(), [](auto part) { return part == ".."; });
}

std::string PathOf(const FileChange& change, const ProjectParameters& project) {
  return PathBelow(change.InBackup ? project.BackupDir : project.PrimaryDir, change.Name);
}

bool IsSameFile(const FileChange& left, const FileChange& right) {
  return left.InBackup == right.InBackup && EqualsIgnoringCase(left.Name, right.Name);
}

class ChangeMaker {
 public:
  ChangeMaker(const FileChanges& changes, const ProjectParameters& project, Disk& disk)
      : m_changes(changes), m_project(project), m_disk(disk) {}

  // Gives the file the wanted content. False, without a change, when it has one that is not of these changes.
  bool Bring(const FileChange& change, const Content& wanted) {
    const ResolvedPath file = Find(change);
    const Content current = ReadIfThere(m_disk, file);
    if (!IsKnown(change, current)) return false;
    if (current == wanted) return true;
    if (wanted) {
      Write(change, file, *wanted);
    } else {
      m_disk.Delete(file.Shown);
    }
    return true;
  }

  bool IsMade(const FileChange& change) { return ReadIfThere(m_disk, Find(change)) == change.After; }

  // False when a file that is to be made is there already, with a content that is not of these changes. What would be
  // replaced or deleted in exchange may then be the only copy.
  bool CanMakeAll() {
    return std::all_of(m_changes.Files.begin(), m_changes.Files.end(), [&](const FileChange& change) {
      return change.Before || !change.After || IsKnown(change, ReadIfThere(m_disk, Find(change)));
    });
  }

 private:
  // Two spellings of one name are one file where case makes no difference.
  [[nodiscard]] bool IsKnown(const FileChange& change, const Content& current) const {
    return std::any_of(m_changes.Files.begin(), m_changes.Files.end(), [&](const FileChange& other) {
      return IsSameFile(other, change) && (other.Before == current || other.After == current);
    });
  }

  // Subject files are planned as they are spelt on the disk. Another spelling may be another subject; and looking up a
  // file that is missing lists its directory, which may hold thousands.
  ResolvedPath Find(const FileChange& change) {
    const std::string path = PathOf(change, m_project);
    if (!IsSubjectFileBelow(change.Name)) return m_disk.Resolve(path, FileOperation::Read);
    return Below(m_disk.Resolve(DirectoryOfPath(path), FileOperation::Read), LastPathComponent(path));
  }

  void Write(const FileChange& change, const ResolvedPath& file, const std::string& content) {
    const std::string& root = change.InBackup ? m_project.BackupDir : m_project.PrimaryDir;
    RequireDirectory(m_disk, root, FileOperation::Write, file.Shown);
    for (std::size_t end = change.Name.find('/'); end != std::string::npos; end = change.Name.find('/', end + 1)) {
      const std::string directory = PathBelow(root, std::string_view(change.Name).substr(0, end));
      if (!m_disk.DirectoryExists(directory)) m_disk.CreateDirectory(directory);
    }
    m_disk.WriteOneOfMany(file, content);
  }

  const FileChanges& m_changes;
  const ProjectParameters& m_project;
  Disk& m_disk;
};

void DeleteJournal(Disk& disk, const ProjectParameters& project) {
  if (disk.FileExists(JournalPath(project))) disk.Delete(JournalPath(project));
}

// Silent, since the fault that led here was reported.
void Undo(const FileChanges& changes, std::size_t made, const ProjectParameters& project, const Platform& platform) {
  ChangeMaker maker(changes, project, platform.Files);
  try {
    for (std::size_t i = made; i > 0; --i) maker.Bring(changes.Files[i - 1], changes.Files[i - 1].Before);
    DeleteJournal(platform.Files, project);
  } catch (const FileError& error) {
    Warn(platform.Boxes, changes.What + " could not be undone.  It will be completed when the project is opened next.",
         FaultText(error));
  }
}

}  // namespace

std::string JournalPath(const ProjectParameters& project) {
  return JoinPath(project.PrimaryDir, ".zova-" + project.Abbreviation + ".journal");
}

std::string FormatJournal(const FileChanges& changes) {
  std::string text;
  text.append(kHeading).append("\n").append(changes.What).append("\n");
  for (const FileChange& change : changes.Files) {
    text.append(change.InBackup ? kBackup : kPrimary).append(change.Name).append("\n");
    AppendContent(text, change.Before);
    AppendContent(text, change.After);
  }
  return text.append(kEnd).append("\n");
}

std::optional<FileChanges> ParseJournal(std::string_view bytes) {
  JournalReader reader(bytes);
  if (reader.Line() != kHeading) return std::nullopt;
  FileChanges changes;
  changes.What = reader.Line();
  for (;;) {
    std::string name = reader.Line();
    if (!reader.IsWhole) return std::nullopt;
    if (name == kEnd) return changes;
    const bool inBackup = name.starts_with(kBackup);
    if (!inBackup && !name.starts_with(kPrimary)) return std::nullopt;
    name.erase(0, inBackup ? kBackup.size() : kPrimary.size());
    if (!StaysBelow(name)) return std::nullopt;
    FileChange change{.InBackup = inBackup, .Name = std::move(name), .Before = {}, .After = {}};
    change.Before = reader.NextContent();
    change.After = reader.NextContent();
    changes.Files.push_back(std::move(change));
  }
}

bool MakeChanges(const FileChanges& changes, const ProjectParameters& project, const Platform& platform) {
  Disk& disk = platform.Files;
  const auto writeJournal = [&] {
    RequireDirectory(disk, project.PrimaryDir, FileOperation::Write, JournalPath(project));
    disk.Write(JournalPath(project), FormatJournal(changes));
  };
  if (!WithRetry(platform.Boxes, writeJournal)) {
    Undo(changes, 0, project, platform);
    return false;
  }
  ChangeMaker maker(changes, project, disk);
  for (std::size_t made = 0; made < changes.Files.size(); ++made) {
    const FileChange& change = changes.Files[made];
    bool isKnown = true;
    const bool done = WithRetry(platform.Boxes, [&] { isKnown = maker.Bring(change, change.After); });
    if (done && isKnown) continue;
    if (!isKnown) {
      Warn(platform.Boxes, "The data have changed on the disk since they were read.  Please try again.",
           "'" + PathOf(change, project) + "'");
    }
    Undo(changes, made + 1, project, platform);
    return false;
  }
  WithRetry(platform.Boxes, [&] { DeleteJournal(disk, project); });  // one that stays is found done when it is read
  return true;
}

bool FinishInterruptedChanges(const ProjectParameters& project, const Platform& platform) {
  if (IsNoDirectory(project.PrimaryDir)) return true;
  Disk& disk = platform.Files;
  std::optional<FileChanges> changes;
  std::string changed;
  bool wasMade = true;
  const bool isDone = WithRetry(platform.Boxes, [&] {
    changed.clear();
    const std::string path = JournalPath(project);
    if (!disk.FileExists(path)) return;
    std::string bytes;
    disk.Read(path, bytes);
    changes = ParseJournal(bytes);
    if (!changes) {
      throw FileError(
          FileOperation::Read, path, FileCause::EndOfData,
          "It should hold an interrupted change of subjects.  The project is not opened until it is deleted.");
    }
    ChangeMaker maker(*changes, project, disk);
    const bool mayReplace = maker.CanMakeAll();
    for (const FileChange& change : changes->Files) {
      if (maker.IsMade(change)) continue;
      wasMade = false;
      const bool isAllowed = mayReplace || (change.After && !change.Before);
      if (!isAllowed || !maker.Bring(change, change.After)) changed += "'" + PathOf(change, project) + "'\n";
    }
    try {
      DeleteJournal(disk, project);
    } catch (const FileError&) {
      if (!wasMade) throw;  // else it says nothing, and the project may lie where nothing can be deleted
    }
  });
  if (isDone && !changed.empty()) {
    Warn(platform.Boxes,
         changes->What + " was interrupted.  It has been completed, but for files that have changed since.", changed);
  }
  return isDone;
}

}  // namespace zova
