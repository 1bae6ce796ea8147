// SPDX-License-Identifier: GPL-3.0-or-later
//
// The names and places of a project's files. "AB" is the project's abbreviation.
//
//   Param directory               <title>.prm for each project, Temp.txt, Temp 1.txt, Temp 2.txt, ...
//   primary directory             <title>.prm
//                                 AB Serial Order.dat, AB Combine Order.dat
//                                 AB Master.txt, AB Combined Master.txt, their pieces AB Master1.txt, ...
//     Sdata                       AB Sub#<identifier>.dat
//       Unfinished                AB Sub#<identifier>.dat
//   backup directory              <title>.prm or "<title> Backup.prm", Sdata and Unfinished as above
//
// Masters and other results may also go to a directory that the user names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The ending of every file with data: subjects and orders.
inline constexpr std::string_view kDataFileEnd = ".dat";
inline constexpr std::string_view kParameterFileEnd = ".prm";

/// D\Param, for the directory D that the user chose.
std::string ParamDirectoryIn(std::string_view directory);

std::string ParameterFileName(std::string_view title);
/// The project file's name without its ending.
std::string ProjectTitle(const ProjectParameters& project);
/// The parameter file of the project in a directory.
std::string ParameterFilePath(std::string_view directory, const ProjectParameters& project);
/// The parameter file that a backup location chosen later gets, in the project's backup directory.
std::string BackupCopyPath(const ProjectParameters& project);

std::string AutosavePath(std::string_view paramDir);
/// An autosave file that was put aside, `number` from 1.
std::string KeptAutosavePath(std::string_view paramDir, int number);

/// Where a project's subject files lie, below a primary or backup directory.
std::string SubjectDirectory(std::string_view directory);
std::string UnfinishedDirectory(std::string_view directory);

/// The name of a subject's file: abbreviation + " Sub#" + identifier + ".dat" when the project's marker begins with
/// "VB", else without " Sub#".
std::string SubjectFileName(const ProjectParameters& project, std::string_view subjectId);
/// What the names that SubjectFileName makes begin with; CurrentPrefix is that of the current layout.
std::string SavedPrefix(const ProjectParameters& project);
std::string CurrentPrefix(std::string_view abbreviation);
/// What is taken off a name to find the identifier. It looks at the whole marker where saving looks at its first two
/// characters: both forms are kept.
std::string ExpectedPrefix(const ProjectParameters& project);
/// The identifier in the name of a listed file: without the expected prefix (in either case) and ".dat". A name without
/// that prefix is another project's; its whole name without ".dat" shows it.
std::string SubjectIdFromFileName(const ProjectParameters& project, std::string_view path);

/// The names of the files in a directory that begin with `prefix` and end with ".dat", and those of a project
/// (abbreviation + anything + ".dat"), in the order of a master's rows. Throw FileError.
std::vector<std::string> ListDataFiles(Disk& disk, std::string_view prefix, const std::string& directory);
std::vector<std::string> ListSubjectFiles(Disk& disk, const ProjectParameters& project, const std::string& directory);

std::string SerialOrderPath(const ProjectParameters& project);
std::string GroupOrderPath(const ProjectParameters& project);

/// True for names that any project's saved order, autosave file (also one put aside) or Param directory may have.
bool IsOrderName(std::string_view name);
bool IsAutosaveName(std::string_view name);
bool IsParamName(std::string_view name);

/// What is made of a project's subjects.
enum class ResultFile { Master, CombinedMaster, SerialMaster, CleanCsv, LongCsv, MeansTable, MeansPlot };
/// The file's name when the user gives none.
std::string ResultName(const ProjectParameters& project, ResultFile file);
/// A piece of a wide master (Master or CombinedMaster), `piece` from 1. Pieces lie in the primary directory.
std::string PiecePath(const ProjectParameters& project, ResultFile master, std::size_t piece);
/// The individual master in the primary directory, which gets the rows of every run.
std::string DefaultMasterPath(const ProjectParameters& project);

/// True for the name of a master of the project, or of a piece of one.
bool IsMasterName(std::string_view name, const ProjectParameters& project);
/// True for a name that begins as one of the project's individual or combined masters.
bool IsNamedAsMaster(std::string_view name, const ProjectParameters& project);
/// The abbreviations of the projects whose individual or combined master might have this name.
std::vector<std::string> AbbreviationsInMasterName(std::string_view name);

}  // namespace zova
