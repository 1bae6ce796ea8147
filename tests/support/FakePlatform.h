// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop/Platform.h"
#include "support/ScriptedBoxes.h"

namespace zova::testing {

/// File dialogs that are answered as listed; one that is not expected fails the test, and so does an answer left over.
/// `Meanwhile` happens in a dialog's event loop.
class ScriptedFileDialogs final : public FileDialogs {
 public:
  ~ScriptedFileDialogs() override { EXPECT_TRUE(Answers.empty()) << "a file dialog was never shown"; }
  std::optional<std::string> ChooseFile(const FileQuestion& question) override {
    Questions.push_back(question);
    if (Meanwhile) Meanwhile();
    if (Answers.empty()) {
      ADD_FAILURE() << "unexpected file dialog: " << question.Title;
      return std::nullopt;
    }
    auto answer = Answers.front();
    Answers.pop_front();
    return answer;
  }
  std::optional<std::string> ChooseNewFile(const FileQuestion& question) override { return ChooseFile(question); }
  std::deque<std::optional<std::string>> Answers;
  std::vector<FileQuestion> Questions;
  std::function<void()> Meanwhile;
};

class FakeSettings final : public SettingsStore {
 public:
  std::string Get(const std::string& section, const std::string& key) override { return Values[section + "/" + key]; }
  void Set(const std::string& section, const std::string& key, const std::string& value) override {
    if (Failures == 0 || StoresAndFails) Values[section + "/" + key] = value;
    if (Failures > 0) {
      --Failures;
      throw FileError(FileOperation::Write, "ZOVA.ini", std::make_error_code(std::errc::io_error));
    }
  }
  void Remove(const std::string& section, const std::string& key) override { Values.erase(section + "/" + key); }
  std::map<std::string, std::string> Values;
  int Failures = 0;             ///< the next settings fail
  bool StoresAndFails = false;  ///< as when only reading back fails
};

/// The percentages shown, in their order; `Meanwhile` happens in the event loop. The user stops
/// a copying before file `StopsAt`, counted from 0.
struct RecordingProgress final : Progress {
  void Show(int percent, const std::string& text) override { Shown.push_back(percent), Text = text; }
  void ProcessEvents() override {
    ++Breaths;
    if (Meanwhile) Meanwhile();
  }
  std::function<void()> Meanwhile;
  std::vector<int> Shown;
  std::string Text;  ///< shown last
  bool ShowCopying(std::size_t done, std::size_t total, bool mayStop) override {
    EXPECT_LT(done, total);
    IsCopying = true;
    return !mayStop || done != StopsAt;
  }
  void EndCopying() override { IsCopying = false; }
  std::size_t StopsAt = SIZE_MAX;
  bool IsCopying = false;
  int Breaths = 0;
};

class FakeHelpViewer final : public HelpViewer {
 public:
  void ShowHelp(const std::string& helpFile, const std::string& topic) override { Shown = helpFile + "#" + topic; }
  std::string Shown;
};

/// Counts the nesting of the busy pointer; its destructor checks that every pointer was restored.
class CountingDesktop final : public Desktop {
 public:
  ~CountingDesktop() override { EXPECT_EQ(Busy, 0) << "the busy pointer was left behind"; }
  void ShowBusyPointer() override { ++Busy, ++Shown; }
  void RestorePointer() override { --Busy; }
  void Beep() override { ++Beeps; }
  bool OpenFolder(const ResolvedPath& directory) override {
    Folder = directory.Native;
    return HasFileManager;
  }
  bool HandOver(const std::string& paramDir, const std::string& projectFile) override {
    HandedOver = paramDir + "|" + projectFile;
    return TakesProjects;
  }
  bool HasFileManager = true;
  bool TakesProjects = false;
  std::string HandedOver;

  int Busy = 0;
  int Shown = 0;
  int Beeps = 0;
  std::filesystem::path Folder;
};

/// The environment of the rules except the disk, scripted or recorded.
struct FakePlatform {
  Platform With(Disk& disk) { return With(disk, Boxes); }
  Platform With(Disk& disk, MessageBoxes& boxes) { return With(disk, boxes, Bar); }
  Platform With(Disk& disk, MessageBoxes& boxes, Progress& bar) {
    return {disk, boxes, Dialogs, Settings, Pointer, Help, bar};
  }

  ScriptedBoxes Boxes;
  ScriptedFileDialogs Dialogs;
  FakeSettings Settings;
  CountingDesktop Pointer;
  FakeHelpViewer Help;
  RecordingProgress Bar;
};

}  // namespace zova::testing
