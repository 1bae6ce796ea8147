// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectLayout.h"

#include <algorithm>
#include <array>

#include "text/Encoding.h"

namespace zova {

namespace {

constexpr std::string_view kSubjectMark = " Sub#";
constexpr std::string_view kMasterStem = " Master";
constexpr std::string_view kCombinedStem = " Combined Master";
constexpr std::string_view kTextEnd = ".txt";
constexpr std::string_view kSerialOrderEnd = " Serial Order.dat";
constexpr std::string_view kGroupOrderEnd = " Combine Order.dat";
constexpr std::string_view kParam = "Param";
constexpr std::string_view kSubjects = "Sdata";
constexpr std::string_view kUnfinished = "Unfinished";
constexpr std::string_view kRemoved = "/Removed";

constexpr std::array<std::string_view, kCompanionFileCount> kCompanionEnds = {
    " Words.csv", " Responses.csv", " Intrusions.csv", " Study Order.csv", " Subjects.csv", " Second Sample.csv"};

std::string_view AutosaveStem(WhichEntry entry) { return entry == WhichEntry::First ? "Temp" : "Temp Second"; }

struct ResultFileName {
  std::string_view Stem;
  std::string_view End;
};

ResultFileName NameOfResult(ResultFile file) {
  switch (file) {
    case ResultFile::Master: return {kMasterStem, kTextEnd};
    case ResultFile::CombinedMaster: return {kCombinedStem, kTextEnd};
    case ResultFile::SerialMaster: return {" Serial Position Master", kTextEnd};
    case ResultFile::CleanCsv: return {" Clean", ".csv"};
    case ResultFile::LongCsv: return {" Long", ".csv"};
    case ResultFile::GroupsCsv: return {" Groups", ".csv"};
    case ResultFile::MeansTable: return {" Means", ".csv"};
    case ResultFile::MeansPlot: return {" Means", ".pdf"};
    case ResultFile::Report: return {" Report", ".html"};
  }
  return {};
}

std::string Joined(std::string_view start, std::string_view middle, std::string_view end) {
  std::string text(start);
  text += middle;
  text += end;
  return text;
}

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kDigitsAndBlank = "0123456789 ";

// stem + characters of `allowed` + ".txt"
bool IsNumbered(std::string_view name, std::string_view stem, std::string_view allowed) {
  if (name.size() < stem.size() + kTextEnd.size()) return false;
  if (!BeginsIgnoringCase(name, stem) || !EndsIgnoringCase(name, kTextEnd)) return false;
  const std::string_view number = name.substr(stem.size(), name.size() - stem.size() - kTextEnd.size());
  return number.find_first_not_of(allowed) == std::string_view::npos;
}

}  // namespace

std::string ParamDirectoryIn(std::string_view directory) { return JoinPath(directory, kParam); }

std::string ParameterFileName(std::string_view title) { return Joined(title, "", kParameterFileEnd); }

std::string ProjectTitle(const ProjectParameters& project) {
  std::string_view title = project.ProjectFileName;  // an older project's may have any ending
  for (std::size_t i = 0; i < kParameterFileEnd.size(); ++i) title = WithoutLastCharacter(title);
  return std::string(title);
}

std::string ParameterFilePath(std::string_view directory, const ProjectParameters& project) {
  return JoinPath(directory, project.ProjectFileName);
}

std::string BackupCopyPath(const ProjectParameters& project) {
  return JoinPath(project.BackupDir, ParameterFileName(ProjectTitle(project) + " Backup"));
}

std::string AutosavePath(std::string_view paramDir, WhichEntry entry) {
  return JoinPath(paramDir, Joined(AutosaveStem(entry), "", kTextEnd));
}

std::string KeptAutosavePath(std::string_view paramDir, int number, WhichEntry entry) {
  return JoinPath(paramDir, Joined(AutosaveStem(entry), " " + std::to_string(number), kTextEnd));
}

std::string SubjectDirectory(std::string_view directory) { return JoinPath(directory, kSubjects); }

std::string UnfinishedDirectory(std::string_view directory) {
  return PlaceDirectory(directory, SubjectPlace::Unfinished);
}

std::string PlaceName(SubjectPlace place, std::string_view file) {
  constexpr std::array<std::string_view, kSubjectPlaces.size()> kBelow = {
      "", "/Unfinished", "/Second", "/Second/Unfinished", "/Second/First", "/Second/Settled"};
  std::string name = Joined(kSubjects, kBelow[static_cast<std::size_t>(place)], "");
  return file.empty() ? name : Joined(name, "/", file);
}

std::string RemovedPlaceName(SubjectPlace place, std::string_view file) {
  return Joined(kSubjects, kRemoved, PlaceName(place, file).substr(kSubjects.size()));
}

bool IsSubjectFileBelow(std::string_view names) { return names.starts_with(Joined(kSubjects, "/", "")); }

bool IsRemovedBelow(std::string_view names) { return names.starts_with(Joined(kSubjects, kRemoved, "/")); }

std::string PathBelow(std::string_view directory, std::string_view names) {
  std::string path(directory);
  while (!names.empty()) {
    const std::size_t end = std::min(names.find('/'), names.size());
    path = JoinPath(path, names.substr(0, end));
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return path;
}

SubjectPlace CompletePlace(WhichEntry entry) noexcept {
  return entry == WhichEntry::First ? SubjectPlace::Complete : SubjectPlace::Second;
}

SubjectPlace UnfinishedPlace(WhichEntry entry) noexcept {
  return entry == WhichEntry::First ? SubjectPlace::Unfinished : SubjectPlace::SecondUnfinished;
}

bool IsOfSecond(SubjectPlace place) noexcept {
  return place == CompletePlace(WhichEntry::Second) || place == UnfinishedPlace(WhichEntry::Second);
}

std::string PlaceDirectory(std::string_view directory, SubjectPlace place) {
  return PathBelow(directory, PlaceName(place));
}

std::string PlaceBelow(std::string_view subjectDirectory, SubjectPlace place) {
  const std::string names = PlaceName(place);
  return PathBelow(subjectDirectory, std::string_view(names).substr(std::min(kSubjects.size() + 1, names.size())));
}

std::string RemovedDirectory(std::string_view directory) {
  return PathBelow(directory, RemovedPlaceName(SubjectPlace::Complete));
}

std::string CurrentPrefix(std::string_view abbreviation) { return Joined(abbreviation, kSubjectMark, ""); }

std::string SavedPrefix(const ProjectParameters& project) {
  return project.FormatMarker.starts_with("VB") ? CurrentPrefix(project.Abbreviation) : project.Abbreviation;
}

std::string ExpectedPrefix(const ProjectParameters& project) {
  return project.FormatMarker == kCurrentMarker ? CurrentPrefix(project.Abbreviation) : project.Abbreviation;
}

std::string SubjectFileName(const ProjectParameters& project, std::string_view subjectId) {
  return Joined(SavedPrefix(project), subjectId, kDataFileEnd);
}

std::string SubjectIdFromFileName(const ProjectParameters& project, std::string_view path) {
  std::string_view name = LastPathComponent(path);
  name.remove_suffix(std::min(name.size(), kDataFileEnd.size()));
  const std::string prefix = ExpectedPrefix(project);
  // "Exp.dat" in a project "Exp" of the oldest layout has an empty identifier; it is listed and scored.
  if (BeginsIgnoringCase(name, prefix)) name.remove_prefix(prefix.size());
  return std::string(name);
}

bool IsOwnSubjectFile(const ProjectParameters& project, std::string_view name) {
  return BeginsIgnoringCase(name, ExpectedPrefix(project));
}

std::vector<std::string> ListDataFiles(Disk& disk, std::string_view prefix, const std::string& directory) {
  return disk.ListFiles(directory, prefix, kDataFileEnd);
}

std::vector<std::string> ListSubjectFiles(Disk& disk, const ProjectParameters& project, const std::string& directory) {
  return ListDataFiles(disk, project.Abbreviation, directory);
}

std::string SerialOrderPath(const ProjectParameters& project) {
  return JoinPath(project.PrimaryDir, Joined(project.Abbreviation, kSerialOrderEnd, ""));
}

std::string GroupOrderPath(const ProjectParameters& project) {
  return JoinPath(project.PrimaryDir, Joined(project.Abbreviation, kGroupOrderEnd, ""));
}

bool IsOrderName(std::string_view name) {
  return EndsIgnoringCase(name, kSerialOrderEnd) || EndsIgnoringCase(name, kGroupOrderEnd);
}

bool IsAutosaveName(std::string_view name) {
  return IsNumbered(name, AutosaveStem(WhichEntry::First), kDigitsAndBlank) || IsSecondAutosaveName(name);
}

bool IsSecondAutosaveName(std::string_view name) {
  return IsNumbered(name, AutosaveStem(WhichEntry::Second), kDigitsAndBlank);
}

bool IsParamName(std::string_view name) { return EqualsIgnoringCase(name, kParam); }

bool IsSubjectDirectoryName(std::string_view name) {
  return EqualsIgnoringCase(name, kSubjects) || EqualsIgnoringCase(name, kUnfinished);
}

std::string CompanionName(const ProjectParameters& project, CompanionFile file) {
  return Joined(project.Abbreviation, kCompanionEnds[static_cast<std::size_t>(file)], "");
}

std::string CompanionPath(std::string_view directory, const ProjectParameters& project, CompanionFile file) {
  return JoinPath(directory, CompanionName(project, file));
}

bool IsCompanionName(std::string_view name) {
  return std::any_of(kCompanionEnds.begin(), kCompanionEnds.end(),
                     [&](std::string_view end) { return EndsIgnoringCase(name, end); });
}

std::string ResultName(const ProjectParameters& project, ResultFile file) {
  const auto [stem, end] = NameOfResult(file);
  return Joined(project.Abbreviation, stem, end);
}

std::string PiecePath(const ProjectParameters& project, ResultFile master, std::size_t piece) {
  const auto [stem, end] = NameOfResult(master);
  return JoinPath(project.PrimaryDir, Joined(project.Abbreviation, stem, std::to_string(piece)).append(end));
}

std::string DefaultMasterPath(const ProjectParameters& project) {
  return JoinPath(project.PrimaryDir, ResultName(project, ResultFile::Master));
}

bool IsMasterName(std::string_view name, const ProjectParameters& project) {
  return IsNumbered(name, project.Abbreviation + std::string(kMasterStem), kDigits) ||
         IsNumbered(name, project.Abbreviation + std::string(kCombinedStem), kDigits) ||
         EqualsIgnoringCase(name, ResultName(project, ResultFile::SerialMaster));
}

bool IsNamedAsMaster(std::string_view name, const ProjectParameters& project) {
  return BeginsIgnoringCase(name, Joined(project.Abbreviation, kCombinedStem, "")) ||
         BeginsIgnoringCase(name, Joined(project.Abbreviation, kMasterStem, ""));
}

std::vector<std::string> AbbreviationsInMasterName(std::string_view name) {
  std::vector<std::string> abbreviations;
  for (const std::string_view stem : {kCombinedStem, kMasterStem}) {
    const std::size_t at = name.rfind(stem);
    if (at != std::string_view::npos) abbreviations.emplace_back(name.substr(0, at));
  }
  return abbreviations;
}

}  // namespace zova
