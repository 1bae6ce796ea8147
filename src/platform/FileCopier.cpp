// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/FileCopier.h"

#include "text/Encoding.h"

namespace zova {

FileCopier::FileCopier(Disk& disk, std::string from, std::string to)
    : m_disk(disk), m_from(std::move(from)), m_to(std::move(to)) {}

void FileCopier::Open() {
  m_nativeFrom = m_disk.Resolve(m_from, FileOperation::Copy);
  m_nativeTo = m_disk.Resolve(m_to, FileOperation::Copy);
  for (std::string& name : m_disk.ListFiles(m_to, "", "")) {
    m_byUpperCase.emplace(UpperCase(name), name);
    m_names.insert(std::move(name));
  }
  m_open = true;
}

std::string FileCopier::TargetName(const std::string& name) const {
  if (m_names.count(name) > 0) return name;
  const auto there = m_byUpperCase.find(UpperCase(name));
  return there == m_byUpperCase.end() ? name : there->second;
}

void FileCopier::Copy(const std::string& name) {
  if (!m_open) Open();
  m_disk.CopyNative(m_nativeFrom / PathFromText(name), JoinPath(m_from, name),
                    m_nativeTo / PathFromText(TargetName(name)), JoinPath(m_to, name));
}

}  // namespace zova
