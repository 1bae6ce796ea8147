// SPDX-License-Identifier: GPL-3.0-or-later
//
// What Examine Means saves: table, plot and report.

#include "means/MeansExaminer.h"
#include "means/ResultFiles.h"
#include "project/ProtectedFiles.h"
#include "text/Encoding.h"

namespace zova {

namespace {

struct PlotFile {
  std::string Ending;
  FileFilter Filter;
};

PlotFile PlotFileOf(PlotFormat format) {
  switch (format) {
    case PlotFormat::Pdf: return {".pdf", {"PDF files (*.pdf)", "*.pdf"}};
    case PlotFormat::Svg: return {".svg", {"SVG files (*.svg)", "*.svg"}};
    case PlotFormat::Png: break;
  }
  return {".png", {"PNG files (*.png)", "*.png"}};
}

}  // namespace

FileQuestion MeansExaminer::QuestionForSaving(const char* title, ResultFile file) const {
  return {.Title = title, .Directory = m_project->PrimaryDir, .Filters = {}, .Name = ResultName(*m_project, file)};
}

void MeansExaminer::SaveTable() {
  if (RowCount() == 0) return;
  FileQuestion question = QuestionForSaving("Save Table", ResultFile::MeansTable);
  question.Filters = {{"CSV files (*.csv)", "*.csv"}, {"All files (*.*)", "*"}};
  if (const auto path = m_platform.Dialogs.ChooseNewFile(question)) Save(*path, CsvText(Lines()));
}

std::optional<PlotTarget> MeansExaminer::AskPlotFile(const std::vector<PlotFormat>& formats) {
  if (!HasPlot()) return std::nullopt;
  FileQuestion question = QuestionForSaving("Save Plot", ResultFile::MeansPlot);
  for (const PlotFormat format : formats) question.Filters.push_back(PlotFileOf(format).Filter);
  const auto path = m_platform.Dialogs.ChooseNewFile(question);
  if (!path) return std::nullopt;
  std::string endings;
  for (const PlotFormat format : formats) {
    const std::string ending = PlotFileOf(format).Ending;
    if (EndsIgnoringCase(*path, ending)) return PlotTarget{*path, format};
    if (!endings.empty()) endings += format == formats.back() ? " or " : ", ";
    endings += "'" + ending + "'";
  }
  Warn(m_platform.Boxes, "The name of a plot's file ends in " + endings + ".", *path);
  return std::nullopt;
}

void MeansExaminer::SavePlot(const PlotTarget& target, const std::string& bytes) { Save(target.Path, bytes); }

std::optional<std::string> MeansExaminer::AskReportFile() {
  if (!CanReport()) return std::nullopt;
  FileQuestion question = QuestionForSaving("Save Report", ResultFile::Report);
  question.Filters = {{"HTML files (*.html)", "*.html"}, {"All files (*.*)", "*"}};
  return m_platform.Dialogs.ChooseNewFile(question);
}

void MeansExaminer::SaveReport(const std::string& path, const std::string& bytes) { Save(path, bytes); }

// The master that is shown may have no header. Throws FileError.
bool MeansExaminer::IsKept(const std::string& path) {
  return IsKeptFile(path, *m_project, m_platform.Files) ||
         (m_platform.Files.FileExists(path) && m_platform.Files.IsSame(path, m_path));
}

void MeansExaminer::Save(const std::string& path, const std::string& bytes) {
  const auto isKept = [this](const std::string& named) { return IsKept(named); };
  if (WriteNamedFile(
          path, [&] { return bytes; }, isKept, m_platform))
    m_status = "Saved: " + path;
}

}  // namespace zova
