// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/files/Disk.h"
#include "subjects/SubjectRecord.h"
#include "text/FieldReader.h"

namespace zova {

/// The content of a subject file.
std::string FormatSubject(const SubjectRecord& record, const ProjectParameters& project);

/// Fills levels, lists and counts from a subject file's content. Does not read the identifier, checks neither header
/// nor positions, and ignores everything after the last field of the project. Throws FieldError (EndOfData,
/// OutOfRange16), leaving levels 0 and lists blank.
void ParseSubject(std::string_view bytes, const ProjectParameters& project, SubjectRecord& record);

/// Reads the file and parses it with ParseSubject. Throws FileError.
void LoadSubjectFile(Disk& disk, const std::string& path, const ProjectParameters& project, SubjectRecord& record);

/// The content of the autosave file: the project file's name, then the subject.
std::string FormatAutosave(const SubjectRecord& record, const ProjectParameters& project);

/// The project file's name in the content of an autosave file. Throws FieldError.
std::string ParseAutosaveProject(std::string_view bytes);

/// Fills `record`, including the identifier, from an autosave file's content. Throws like ParseSubject, and EndOfData
/// also without an identifier, or with one that would lead to another directory. The identifier may be one that cannot
/// be typed, since it may come from a file name.
void ParseAutosave(std::string_view bytes, const ProjectParameters& project, SubjectRecord& record);

/// The autosave file in the Param directory, and those that were put aside there (ProjectLayout). All throw FileError.
void WriteAutosaveFile(Disk& disk, const std::string& paramDir, const SubjectRecord& record,
                       const ProjectParameters& project);
std::string ReadAutosaveProject(Disk& disk, const std::string& path);
void ReadAutosaveFile(Disk& disk, const std::string& path, const ProjectParameters& project, SubjectRecord& record);
/// Puts it aside as "Temp 1.txt" and returns that path; files put aside earlier move up by one number. The third and
/// later ones are deleted unless they cannot be restored. No effect without an autosave file; likewise below.
std::string KeepAutosaveFile(Disk& disk, const std::string& paramDir);
void DeleteAutosaveFile(Disk& disk, const std::string& paramDir);

}  // namespace zova
