// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "means/MeansPlot.h"
#include "means/SerialPositionTable.h"
#include "platform/desktop/Platform.h"
#include "project/ProjectLayout.h"

namespace zova {

enum class PlotFormat { Pdf, Svg, Png };

struct PlotTarget {
  std::string Path;
  PlotFormat Format = PlotFormat::Pdf;
};

/// True when a point of the picture has a confidence interval.
bool HasIntervals(const PlotPicture& picture);

/// The rules of Examine Means: which master is read, what is chosen of it, and what table and plot show of that.
/// Measures, variables, rows and columns count from 0. The master itself is never changed.
class MeansExaminer {
 public:
  explicit MeansExaminer(const Platform& platform) : m_platform(platform) {}
  /// Called when what is shown changes while a master is read.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  /// Begins with the project's own master; where there is none the screen says so. `header` is that of a master whose
  /// rows stand without their own, or "". `project` must outlive the screen.
  void Open(const ProjectParameters& project, const std::string& header);
  /// Forgets the master.
  void Close();

  void ChooseMaster();  ///< cmdMeansOpen
  void ChooseMeasures(const std::vector<std::size_t>& measures);
  /// Those that were chosen before keep their order; new ones come behind them.
  void ChooseVariables(const std::vector<std::size_t>& variables);
  void ChooseWholeSeries();  ///< all measures of the families that have a chosen one
  void SetLeavesOut(bool leavesOut);
  void SaveTable();
  /// Asks for the file of a plot; nothing when that was given up.
  std::optional<PlotTarget> AskPlotFile();
  void SavePlot(const PlotTarget& target, const std::string& bytes);

  [[nodiscard]] std::string FileLine() const;  ///< which master is shown, or why none is
  [[nodiscard]] std::string NoteLine() const;  ///< what the numbers below must be read with
  /// The texts of the lists; they change only when `LayoutRevision` has grown.
  [[nodiscard]] int LayoutRevision() const noexcept { return m_layoutRevision; }
  [[nodiscard]] const std::vector<std::string>& Measures() const noexcept { return m_measureNames; }
  [[nodiscard]] const std::vector<std::string>& Variables() const noexcept { return m_table.Variables; }
  [[nodiscard]] const std::vector<std::size_t>& ChosenMeasures() const noexcept { return m_request.Measures; }
  [[nodiscard]] const std::vector<std::size_t>& ChosenVariables() const noexcept { return m_request.Variables; }
  [[nodiscard]] bool LeavesOut() const noexcept { return m_request.LeavesOutUncomputed; }
  [[nodiscard]] bool CanLeaveOut() const noexcept { return m_uncomputed > 0; }

  /// The table and the picture, which change only when `ResultRevision` has grown.
  [[nodiscard]] int ResultRevision() const noexcept { return m_resultRevision; }
  [[nodiscard]] int RowCount() const noexcept {
    return static_cast<int>(m_means.Measures.size() * m_means.Cells.size());
  }
  [[nodiscard]] std::vector<std::string> Headings() const;
  /// As the screen shows it; a mean with values that could not be computed ends in "*".
  [[nodiscard]] std::string CellText(int row, int column) const;
  /// What its mark means, or "".
  [[nodiscard]] std::string RowTip(int row) const;
  /// For a spreadsheet's clipboard.
  [[nodiscard]] std::string TableText() const { return TabText(Lines()); }
  [[nodiscard]] const PlotPicture& Picture() const noexcept { return m_picture; }
  [[nodiscard]] bool HasPlot() const noexcept { return !m_picture.Series.empty(); }

 private:
  bool Read(const std::string& path, std::string& bytes);
  /// Nothing, or why the text is no master.
  std::optional<std::string> ParseTable(const std::string& bytes, std::string_view header);
  void Show(const std::string& path);
  void Compute();
  [[nodiscard]] MeansLines Lines() const;
  [[nodiscard]] bool IsKept(const std::string& path);
  void Save(const std::string& path, const std::string& bytes);
  [[nodiscard]] FileQuestion QuestionForSaving(const char* title, ResultFile file) const;

  Platform m_platform;
  std::function<void()> m_observer;
  const ProjectParameters* m_project = nullptr;
  std::string m_header;
  std::string m_path;     // of the master shown, or ""
  std::string m_missing;  // why none is
  bool m_isOwn = false;
  bool m_isReading = false;
  int m_unchecked = 0;  // rows that could not be scored again
  MasterTable m_table;
  std::optional<SerialPositionTable> m_serial;
  std::vector<std::string> m_measureNames;
  MeansRequest m_request;
  MeansTable m_means;
  std::size_t m_uncomputed = 0;  // values of the chosen measures
  PlotPicture m_picture;
  int m_layoutRevision = 0;
  int m_resultRevision = 0;
};

}  // namespace zova
