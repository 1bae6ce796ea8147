// SPDX-License-Identifier: GPL-3.0-or-later
//
// The names and places of a project's files. "AB" is the project's abbreviation.
//
//   Param directory               <title>.prm for each project, Temp.txt, Temp 1.txt, Temp 2.txt, ..., and the same of
//   second entries,
//                                 Temp Second.txt, Temp Second 1.txt, ...
//   primary directory             <title>.prm
//                                 AB Serial Order.dat, AB Combine Order.dat
//                                 AB Words.csv and the other companion files
//                                 AB Master.txt, AB Combined Master.txt, their pieces AB Master1.txt, ...
//     Sdata                       AB Sub#<identifier>.dat
//       Unfinished                AB Sub#<identifier>.dat
//       Second, Second\Unfinished  AB Sub#<identifier>.dat, the second entries
//       Second\First              AB Sub#<identifier>.dat, the first entries of settled subjects as they were typed
//       Second\Settled            AB Sub#<identifier>.dat, the second entries that they were settled with
//       Removed                   removed subjects, in the directories from Sdata on as above
//   backup directory              the companion files, <title>.prm or "<title> Backup.prm", Sdata as above
//
// Masters and other results may also go to a directory that the user names.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The extension of subject and order files.
inline constexpr std::string_view kDataFileEnd = ".dat";
inline constexpr std::string_view kParameterFileEnd = ".prm";

/// D\Param for a directory D.
std::string ParamDirectoryIn(std::string_view directory);

std::string ParameterFileName(std::string_view title);
/// The parameter file's name without extension.
std::string ProjectTitle(const ProjectParameters& project);
/// The parameter file of the project in a directory.
std::string ParameterFilePath(std::string_view directory, const ProjectParameters& project);
/// The parameter file of a backup location chosen later.
std::string BackupCopyPath(const ProjectParameters& project);

/// Which of two entries of a subject is meant.
enum class WhichEntry { First, Second };

/// "Temp.txt", "Temp Second.txt"
std::string AutosavePath(std::string_view paramDir, WhichEntry entry = WhichEntry::First);
/// An autosave file put aside, `number` from 1.
std::string KeptAutosavePath(std::string_view paramDir, int number, WhichEntry entry = WhichEntry::First);

/// The directory of subject files in a primary or backup directory.
std::string SubjectDirectory(std::string_view directory);
std::string UnfinishedDirectory(std::string_view directory);

/// The kinds of subject files. Only complete subjects are read by a master.
enum class SubjectPlace { Complete, Unfinished, Second, SecondUnfinished, First, Settled };
inline constexpr std::array kSubjectPlaces = {SubjectPlace::Complete, SubjectPlace::Unfinished,
                                              SubjectPlace::Second,   SubjectPlace::SecondUnfinished,
                                              SubjectPlace::First,    SubjectPlace::Settled};
/// The names of its directories below a primary or backup directory, and of `file` in them if it is not empty, with "/"
/// between them; and of removed subjects.
std::string PlaceName(SubjectPlace place, std::string_view file = {});
std::string RemovedPlaceName(SubjectPlace place, std::string_view file = {});
/// True for names with "/" between them that lead below the directories of subject files, or of removed ones.
bool IsSubjectFileBelow(std::string_view names);
bool IsRemovedBelow(std::string_view names);
/// A path from names with "/" between them.
std::string PathBelow(std::string_view directory, std::string_view names);
SubjectPlace CompletePlace(WhichEntry entry) noexcept;
SubjectPlace UnfinishedPlace(WhichEntry entry) noexcept;
/// True for the places of second entries as they are typed.
bool IsOfSecond(SubjectPlace place) noexcept;
std::string PlaceDirectory(std::string_view directory, SubjectPlace place);
/// A place below a directory of subject files: of this project's, another one's data, or of removed subjects.
std::string PlaceBelow(std::string_view subjectDirectory, SubjectPlace place);
/// The directory of removed subjects in a primary or backup directory.
std::string RemovedDirectory(std::string_view directory);

/// The name of a subject's file: abbreviation + " Sub#" + identifier + ".dat" when the project's marker begins with
/// "VB", else without " Sub#".
std::string SubjectFileName(const ProjectParameters& project, std::string_view subjectId);
/// The beginning of SubjectFileName; CurrentPrefix is that of the current layout.
std::string SavedPrefix(const ProjectParameters& project);
std::string CurrentPrefix(std::string_view abbreviation);
/// The prefix removed from a name to get the identifier. Kept: it depends on the whole marker, SavedPrefix on its first
/// two characters.
std::string ExpectedPrefix(const ProjectParameters& project);
/// The identifier in a listed file's name: without the expected prefix (in any case) and ".dat". For a name without
/// that prefix, which belongs to another project, the whole name without ".dat".
std::string SubjectIdFromFileName(const ProjectParameters& project, std::string_view path);
/// False for a listed file's name that has not the expected prefix: another project's, whose abbreviation is longer.
bool IsOwnSubjectFile(const ProjectParameters& project, std::string_view name);

/// The names of the files in a directory that begin with `prefix` and end with ".dat", and those of a project
/// (abbreviation + anything + ".dat"), in the order of a master's rows. Throw FileError.
std::vector<std::string> ListDataFiles(Disk& disk, std::string_view prefix, const std::string& directory);
std::vector<std::string> ListSubjectFiles(Disk& disk, const ProjectParameters& project, const std::string& directory);

std::string SerialOrderPath(const ProjectParameters& project);
std::string GroupOrderPath(const ProjectParameters& project);

/// True for the names of any project's saved orders, autosave files (also those put aside), Param directory and
/// directories of subject files.
bool IsOrderName(std::string_view name);
bool IsAutosaveName(std::string_view name);
bool IsSecondAutosaveName(std::string_view name);
bool IsParamName(std::string_view name);
bool IsSubjectDirectoryName(std::string_view name);

/// The companion files: what a lab decided or knows of its project beside the subjects' data. UTF-8 CSV files in the
/// primary directory, and like subject files in the backup directory.
enum class CompanionFile {
  Words,         ///< the study list's words
  Responses,     ///< what the lab decided about responses that are no words of the list
  Intrusions,    ///< recalls that are no items, with their places
  StudyOrder,    ///< the subjects' own study orders
  Subjects,      ///< original identifiers of imported subjects
  SecondSample,  ///< the subjects chosen for a second entry
};
inline constexpr std::size_t kCompanionFileCount = 6;

/// "AB Words.csv"
std::string CompanionName(const ProjectParameters& project, CompanionFile file);
/// In a primary or backup directory.
std::string CompanionPath(std::string_view directory, const ProjectParameters& project, CompanionFile file);
/// True for the name of any project's companion file.
bool IsCompanionName(std::string_view name);

/// Files computed from a project's subjects.
enum class ResultFile {
  Master,
  CombinedMaster,
  SerialMaster,
  CleanCsv,
  LongCsv,
  GroupsCsv,
  MeansTable,
  MeansPlot,
  Report
};
/// The default name of the file.
std::string ResultName(const ProjectParameters& project, ResultFile file);
/// A piece of a wide master (Master or CombinedMaster), `piece` from 1, in the primary directory.
std::string PiecePath(const ProjectParameters& project, ResultFile master, std::size_t piece);
/// The individual master in the primary directory: every run writes its rows there.
std::string DefaultMasterPath(const ProjectParameters& project);

/// True for the name of a master of the project, or of a piece of one.
bool IsMasterName(std::string_view name, const ProjectParameters& project);
/// True for a name that begins like the project's individual or combined master.
bool IsNamedAsMaster(std::string_view name, const ProjectParameters& project);
/// The abbreviations of all projects whose individual or combined master could have this name.
std::vector<std::string> AbbreviationsInMasterName(std::string_view name);

}  // namespace zova
