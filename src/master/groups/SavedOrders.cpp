// SPDX-License-Identifier: GPL-3.0-or-later
//
// "<abbreviation> Serial Order.dat", for N items, and "<abbreviation> Combine Order.dat", for any number of subjects,
// in the order of their listing:
//
//   <item>,<position>                N lines
//
//   "<identifier>",<position>        a line per subject
//
// Two subjects may have the same identifier (files whose names differ in case); the order of their lines distinguishes
// them.

#include "master/groups/SavedOrders.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "platform/files/DataFileError.h"
#include "project/ProjectLayout.h"
#include "project/StudyItems.h"
#include "scoring/ScoreSubject.h"
#include "text/Encoding.h"
#include "text/FieldReader.h"
#include "text/Records.h"

namespace zova {

namespace {

template <typename NameOf>
std::optional<OrderFault> FirstFault(const std::vector<std::int16_t>& positions, NameOf&& nameOf) {
  const int count = static_cast<int>(positions.size());
  std::vector<bool> used(positions.size());
  for (std::size_t row = 0; row < positions.size(); ++row) {
    const int position = positions[row];
    if (position < 1 || position > count) {
      return OrderFault{nameOf(row) + " has no position from 1 to " + std::to_string(count) + ".", row};
    }
    if (used[static_cast<std::size_t>(position) - 1]) {
      return OrderFault{"Position " + std::to_string(position) + " is used twice.", row};
    }
    used[static_cast<std::size_t>(position) - 1] = true;
  }
  return std::nullopt;
}

// Assigns the positions 1, 2, ... in the order of `rows`.
std::vector<std::int16_t> PositionsOf(const std::vector<std::size_t>& rows) {
  std::vector<std::int16_t> positions(rows.size());
  std::int16_t position = 0;
  for (const std::size_t row : rows) positions[row] = ++position;
  return positions;
}

// Runs `parse` on the fields of a file's bytes. Throws FieldError.
template <typename Parse>
auto ParseFields(std::string_view bytes, Parse&& parse) {
  RequireDataText(bytes);
  const DataText text(bytes);
  FieldReader reader(text.Content());
  return parse(reader);
}

SerialOrder ParseSerialOrder(FieldReader& reader, int itemCount) {
  SerialOrder order(static_cast<std::size_t>(itemCount), 0);
  for (int line = 1; line <= itemCount; ++line) {
    const int item = reader.NextCount(itemCount, 1);
    order[static_cast<std::size_t>(item) - 1] = reader.NextStrictNumber();
  }
  if (!reader.OnlyBlankLinesFollow()) {  // another list was ordered
    reader.Skip();                       // to the line too many
    reader.Refuse(FieldFault::MoreData);
  }
  return order;
}

GroupOrderLines ParseGroupOrder(FieldReader& reader) {
  GroupOrderLines lines;
  do {
    lines.SubjectIds.emplace_back(reader.Next());
    lines.Positions.push_back(reader.NextStrictNumber());
  } while (!reader.OnlyBlankLinesFollow());
  return lines;
}

// Runs `parse` on a saved file; nullopt when the file is missing or invalid.
template <typename Parse>
auto ParseSaved(Disk& disk, const std::string& path, Parse&& parse)
    -> std::optional<decltype(parse(std::declval<FieldReader&>()))> {
  const ResolvedPath file = disk.Resolve(path, FileOperation::Read);
  if (disk.Kind(file, FileOperation::Read) == EntryKind::Missing) return std::nullopt;
  std::string bytes;
  disk.Read(file, bytes);
  try {
    return ParseFields(bytes, parse);
  } catch (const FieldError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<OrderFault> SerialOrderFault(const SerialOrder& order) {
  return FirstFault(order, [](std::size_t row) { return "Item " + std::to_string(row + 1); });
}

std::optional<OrderFault> GroupOrderFault(const std::vector<std::string>& subjectIds, const GroupOrder& order) {
  return FirstFault(order, [&](std::size_t row) { return "Subject " + subjectIds[row]; });
}

SerialOrder FirstSerialOrder(const ProjectParameters& project) {
  std::vector<std::size_t> rows(static_cast<std::size_t>(project.ItemCount));
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  if (IsFalseMemoryInForce(project)) {
    std::stable_partition(rows.begin(), rows.end(),
                          [&](std::size_t row) { return !IsLure(static_cast<int>(row) + 1, project); });
  }
  return PositionsOf(rows);
}

GroupOrder FirstGroupOrder(std::size_t subjectCount) {
  GroupOrder order(subjectCount);
  std::iota(order.begin(), order.end(), std::int16_t{1});
  return order;
}

SerialOrder ReadSerialOrder(Disk& disk, const std::string& path, int itemCount) {
  std::string bytes;
  disk.Read(path, bytes);
  return ParsingFile(path, [&] {
    return ParseFields(bytes, [&](FieldReader& reader) { return ParseSerialOrder(reader, itemCount); });
  });
}

GroupOrderLines ReadGroupOrder(Disk& disk, const std::string& path) {
  std::string bytes;
  disk.Read(path, bytes);
  return ParsingFile(path, [&] { return ParseFields(bytes, ParseGroupOrder); });
}

std::optional<OrderFault> GroupFileFault(const GroupOrderLines& lines, const std::vector<std::string>& subjectIds) {
  if (auto fault = GroupOrderFault(lines.SubjectIds, lines.Positions)) return fault;
  std::map<std::string_view, int> unused;  // subjects with this identifier; a first line for none is ignored
  for (const std::string& id : subjectIds) ++unused[id];
  for (std::size_t row = 0; row < lines.SubjectIds.size(); ++row) {
    int& left = unused.try_emplace(lines.SubjectIds[row], 1).first->second;
    if (--left < 0) return OrderFault{"Subject " + lines.SubjectIds[row] + " has more than one position.", row};
  }
  return std::nullopt;
}

GroupOrder FitGroupOrder(const GroupOrderLines& lines, const std::vector<std::string>& subjectIds) {
  std::multimap<std::string_view, std::int16_t> saved;
  for (std::size_t line = 0; line < lines.SubjectIds.size(); ++line) {
    saved.emplace(lines.SubjectIds[line], lines.Positions[line]);
  }
  std::vector<int> keys;  // the saved position; new subjects sort last
  for (const std::string& id : subjectIds) {
    const auto [found, end] = saved.equal_range(id);
    const bool isKnown = found != end;
    keys.push_back(isKnown ? found->second : kMaxSubjects + 1);
    if (isKnown) saved.erase(found);
  }
  std::vector<std::size_t> rows(subjectIds.size());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  std::stable_sort(rows.begin(), rows.end(), [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
  return PositionsOf(rows);
}

std::optional<SerialOrder> ReadSavedSerialOrder(Disk& disk, const ProjectParameters& project) {
  auto order = ParseSaved(disk, SerialOrderPath(project),
                          [&](FieldReader& reader) { return ParseSerialOrder(reader, project.ItemCount); });
  if (order && SerialOrderFault(*order)) order.reset();
  return order;
}

std::optional<GroupOrder> ReadSavedGroupOrder(Disk& disk, const ProjectParameters& project,
                                              const std::vector<std::string>& subjectIds) {
  const auto lines = ParseSaved(disk, GroupOrderPath(project), ParseGroupOrder);
  if (!lines || GroupOrderFault(lines->SubjectIds, lines->Positions)) return std::nullopt;
  return FitGroupOrder(*lines, subjectIds);
}

void SaveSerialOrder(Disk& disk, const ProjectParameters& project, const SerialOrder& order) {
  RecordWriter out;
  int item = 0;
  for (const std::int16_t position : order) out.Number(++item).Number(position).EndLine();
  disk.Write(SerialOrderPath(project), out.Content());
}

namespace {

std::string FormatGroupOrder(const std::vector<std::string>& subjectIds, const GroupOrder& order) {
  RecordWriter out;
  for (std::size_t row = 0; row < order.size(); ++row) out.Text(subjectIds[row]).Number(order[row]).EndLine();
  return out.Release();
}

}  // namespace

void SaveGroupOrder(Disk& disk, const ProjectParameters& project, const std::vector<std::string>& subjectIds,
                    const GroupOrder& order) {
  disk.Write(GroupOrderPath(project), FormatGroupOrder(subjectIds, order));
}

std::optional<RenamedOrder> RenameInGroupOrder(Disk& disk, const ProjectParameters& project, std::string_view from,
                                               std::string_view to) {
  auto lines = ParseSaved(disk, GroupOrderPath(project), ParseGroupOrder);
  if (!lines) return std::nullopt;
  const auto named = std::find(lines->SubjectIds.begin(), lines->SubjectIds.end(), from);
  if (named == lines->SubjectIds.end()) return std::nullopt;
  RenamedOrder renamed;
  disk.Read(GroupOrderPath(project), renamed.Before);
  *named = to;
  renamed.After = FormatGroupOrder(lines->SubjectIds, lines->Positions);
  return renamed;
}

}  // namespace zova
