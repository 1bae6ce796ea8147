// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/CopyRun.h"

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/FileCopier.h"

namespace zova {

namespace {

class CopyingScreen {
 public:
  explicit CopyingScreen(Progress& bar) : m_bar(bar) {}
  ~CopyingScreen() { m_bar.EndCopying(); }
  CopyingScreen(const CopyingScreen&) = delete;
  CopyingScreen& operator=(const CopyingScreen&) = delete;

 private:
  Progress& m_bar;
};

}  // namespace

CopyOutcome CopyFilesByName(const std::string& from, const std::string& to, const std::vector<std::string>& names,
                            const Platform& platform) {
  const CopyingScreen screen(platform.Bar);
  FileCopier copier(platform.Files, from, to, names);
  for (std::size_t done = 0; done < names.size(); ++done) {
    if (!platform.Bar.ShowCopying(done, names.size(), true)) return {done, false, true};
    if (!WithRetry(platform.Boxes, [&] { copier.Copy(names[done]); })) return {done};
  }
  return {names.size(), true};
}

void ForEachFile(const std::vector<std::string>& names, Progress& bar,
                 const std::function<void(const std::string&)>& act) {
  const CopyingScreen screen(bar);
  for (std::size_t done = 0; done < names.size(); ++done) {
    bar.ShowCopying(done, names.size(), false);
    act(names[done]);
  }
}

}  // namespace zova
