// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/FileSettings.h"

#include <system_error>

#include "text/IniText.h"

namespace zova {

std::string FileSettings::Get(const std::string& section, const std::string& key) {
  return IniValue(Content(), section, key).value_or("");
}

void FileSettings::Set(const std::string& section, const std::string& key, const std::string& value) {
  Store(WithIniValue(Content(), section, key, value));
}

void FileSettings::Remove(const std::string& section, const std::string& key) {
  Store(WithIniValue(Content(), section, key, std::nullopt));
}

std::string FileSettings::Content() {
  std::string content;
  if (m_disk.FileExists(m_file)) m_disk.Read(m_file, content);
  return content;
}

void FileSettings::Store(const std::string& content) {
  m_disk.CreateDirectories(DirectoryOfPath(m_file));
  m_disk.Write(m_file, content);
  if (Content() == content) return;
  throw FileError(FileOperation::Write, m_file, std::make_error_code(std::errc::io_error),
                  "The file does not hold what was written to it.");
}

}  // namespace zova
