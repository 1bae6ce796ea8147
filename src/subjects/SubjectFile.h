// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/files/Disk.h"
#include "subjects/SubjectRecord.h"
#include "text/FieldReader.h"

namespace zova {

/// The content of a subject file. Minutes and ratings that the project does not keep are written as 0.
std::string FormatSubject(const SubjectRecord& record, const ProjectParameters& project);

/// What in a subject file is scored all the same, but was hardly meant so.
struct SubjectOddities {
  bool TextReadAsZero = false;  ///< text stood where a number belongs
  bool BlankInside = false;     ///< an item 0 stands before the last item of a test
};

/// Fills levels, lists and counts from a subject file's content. The identifier is never taken from it, what stands
/// behind the last field that the project asks for is passed over, and neither header nor positions are checked.
/// Throws FieldError (EndOfData, OutOfRange16, NulByte, Utf16) and then leaves levels 0 and lists blank.
SubjectOddities ParseSubject(std::string_view bytes, const ProjectParameters& project, SubjectRecord& record);

/// Reads the file, parses it with ParseSubject, and notes it as known. Throws FileError.
void LoadSubjectFile(Disk& disk, const std::string& path, const ProjectParameters& project, SubjectRecord& record);

/// The content of the autosave file: the project file's name, then the subject.
std::string FormatAutosave(const SubjectRecord& record, const ProjectParameters& project);

/// The project file's name in the content of an autosave file. Throws FieldError.
std::string ParseAutosaveProject(std::string_view bytes);

/// Fills `record`, including the identifier, from an autosave file's content. Throws like ParseSubject, and
/// BadIdentifier without an identifier, or with one that would lead to another directory. The identifier may be one
/// that cannot be typed, since it may come from a file name.
void ParseAutosave(std::string_view bytes, const ProjectParameters& project, SubjectRecord& record);

/// The autosave file in the Param directory, and those that were put aside there (ProjectLayout). All throw FileError.
void WriteAutosaveFile(Disk& disk, const std::string& paramDir, const SubjectRecord& record,
                       const ProjectParameters& project);
std::string ReadAutosaveProject(Disk& disk, const std::string& path);
void ReadAutosaveFile(Disk& disk, const std::string& path, const ProjectParameters& project, SubjectRecord& record);
/// Puts it aside as "Temp 1.txt" and returns that path; files put aside earlier move up by one number. The third and
/// later ones are deleted unless they cannot be restored. May be called again after a fault. No effect without an
/// autosave file; likewise below.
std::string KeepAutosaveFile(Disk& disk, const std::string& paramDir, WhichEntry entry = WhichEntry::First);
void DeleteAutosaveFile(Disk& disk, const std::string& paramDir, WhichEntry entry = WhichEntry::First);

}  // namespace zova
