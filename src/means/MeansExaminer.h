// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "master/columns/FurtherFamilies.h"
#include "means/MeansPlot.h"
#include "means/SerialPositionTable.h"
#include "platform/desktop/Platform.h"
#include "project/ProjectLayout.h"
#include "words/WordList.h"

namespace zova {

/// Further measures that stand together in the list, under a heading.
struct MeasureGroup {
  std::string Heading;    ///< "Clustering"
  std::size_t First = 0;  ///< measure
  std::size_t Count = 0;
};

/// What is plotted: the means of the chosen measures, or the recalls themselves.
enum class PlotShown { Means, Raster };

/// A chosen variable and its levels, in the order of axis and legend.
struct PlotFactor {
  std::size_t Variable = 0;
  std::string Name;
  std::vector<std::string> Levels;
};

/// The answers of "Plot Options", for a plot of the kind that is shown.
struct PlotAnswers {
  std::string Title;
  std::string Min;  ///< "" for automatic
  std::string Max;
  RasterColours Colours = RasterColours::StudyPosition;
  std::vector<PlotFactor> Factors;
};

enum class PlotFormat { Pdf, Svg, Png };

struct PlotTarget {
  std::string Path;
  PlotFormat Format = PlotFormat::Pdf;
};

/// The rules of Examine Means: the master, the selection, and what table and plot show. Measures, variables, rows and
/// columns count from 0. Never changes a master.
class MeansExaminer {
 public:
  explicit MeansExaminer(const Platform& platform) : m_platform(platform) {}
  /// Called when what is shown changes while a master is being read.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  /// Shows the project's own master, or a note that there is none. `header` is the header written to another
  /// destination, for a master without its own, or "". `project` must outlive the screen.
  void Open(const ProjectParameters& project, const std::string& header);
  void Close();

  void ChooseMaster();  ///< cmdMeansOpen
  /// Computes the further measures when one is chosen for the first time.
  void ChooseMeasures(const std::vector<std::size_t>& measures);
  /// Variables chosen before keep their order; new ones follow.
  void ChooseVariables(const std::vector<std::size_t>& variables);
  void ChooseWholeSeries();  ///< all measures of the families of the chosen ones
  void SetLeavesOut(bool leavesOut);
  /// Whether the table has more statistics, the means of each of several variables, and intervals within subjects.
  void SetMore(bool hasMore);
  void SetBars(PlotBars bars);
  /// A raster is of the open project; it is computed when it is chosen for the first time.
  void SetPlotShown(PlotShown shown);
  [[nodiscard]] PlotShown Shown() const noexcept { return m_shown; }
  [[nodiscard]] PlotAnswers Answers() const;
  /// False for ends of the axis that make none; the user is told.
  bool Answer(const PlotAnswers& answers);
  [[nodiscard]] const PlotOptions& Options() const noexcept { return m_options; }
  void SaveTable();
  /// Asks for the file of a plot in one of `formats`; nullopt when the user cancels.
  std::optional<PlotTarget> AskPlotFile(const std::vector<PlotFormat>& formats);
  void SavePlot(const PlotTarget& target, const std::string& bytes);
  /// Asks for the file of a report; nullopt when the user cancels.
  std::optional<std::string> AskReportFile();
  void SaveReport(const std::string& path, const std::string& bytes);
  /// With measures of an individual master of the open project.
  [[nodiscard]] bool CanReport() const noexcept { return CanRaster() && RowCount() > 0; }
  /// For an individual master of the open project.
  [[nodiscard]] bool CanRaster() const noexcept { return !m_furtherGroups.empty(); }
  [[nodiscard]] const MasterTable& Table() const noexcept { return m_table; }
  [[nodiscard]] const MeansRequest& Request() const noexcept { return m_request; }

  [[nodiscard]] std::string FileLine() const;  ///< the master shown, or why there is none
  [[nodiscard]] std::string NoteLine() const;  ///< remarks on the numbers
  /// What the last act did: "Saved: C:\\Data\\Means.pdf", "Copied 6 lines"; "" after a new selection.
  [[nodiscard]] const std::string& StatusLine() const noexcept { return m_status; }
  /// The texts of the lists change only when `LayoutRevision` increases.
  [[nodiscard]] int LayoutRevision() const noexcept { return m_layoutRevision; }
  [[nodiscard]] const std::vector<std::string>& Measures() const noexcept { return m_measureNames; }
  /// The further measures among them, which stand behind the others; none but with a master of the open project.
  [[nodiscard]] const std::vector<MeasureGroup>& FurtherGroups() const noexcept { return m_furtherGroups; }
  [[nodiscard]] const std::vector<std::string>& Variables() const noexcept { return m_table.Variables; }
  [[nodiscard]] const std::vector<std::size_t>& ChosenMeasures() const noexcept { return m_request.Measures; }
  [[nodiscard]] const std::vector<std::size_t>& ChosenVariables() const noexcept { return m_request.Variables; }
  [[nodiscard]] bool LeavesOut() const noexcept { return m_request.LeavesOutUncomputed; }
  [[nodiscard]] bool HasMore() const noexcept { return m_request.More.Se; }
  [[nodiscard]] PlotBars Bars() const noexcept { return m_options.Bars; }
  /// The effect sizes of the chosen variables and tests, a line each; "" if there are none.
  [[nodiscard]] const std::string& EffectLines() const noexcept { return m_effects; }
  [[nodiscard]] bool CanLeaveOut() const noexcept { return m_uncomputed > 0; }

  /// Table and picture change only when `ResultRevision` increases.
  [[nodiscard]] int ResultRevision() const noexcept { return m_resultRevision; }
  [[nodiscard]] int RowCount() const noexcept {
    return static_cast<int>(m_means.Measures.size() * m_means.Cells.size());
  }
  [[nodiscard]] std::vector<std::string> Headings() const;
  /// The first column of numbers.
  [[nodiscard]] int FirstNumber() const noexcept { return 1 + static_cast<int>(m_means.Variables.size()); }
  /// As shown; a mean that includes values that could not be computed ends in "*".
  [[nodiscard]] std::string CellText(int row, int column) const;
  /// The meaning of the row's mark, or "".
  [[nodiscard]] std::string RowTip(int row) const;
  /// True for the line of all subjects below those of the levels.
  [[nodiscard]] bool IsTotal(int row) const;
  /// Whether the column of the values that could not be computed says something.
  [[nodiscard]] bool ShowsUncomputed() const noexcept { return m_uncomputed + m_lacking > 0; }
  /// The whole table for the clipboard, with all digits; the status line says so.
  std::string CopyTable();
  [[nodiscard]] const PlotPicture& Picture() const noexcept { return m_picture; }
  [[nodiscard]] bool HasPlot() const noexcept { return !m_picture.IsEmpty(); }

 private:
  bool Read(const std::string& path, std::string& bytes);
  /// nullopt, or why the text is not a master.
  std::optional<std::string> ParseTable(const std::string& bytes, std::string_view header);
  void Show(const std::string& path);
  void ListFurther();
  bool ComputeFurtherOnce();
  void Compute();
  void ComputeTable();
  [[nodiscard]] PlotPicture Drawn() const;
  [[nodiscard]] PlotPicture DrawnMeans() const;
  [[nodiscard]] const ProjectParameters* OwnProject() const noexcept { return m_isOwn ? m_project : nullptr; }
  void TellEffects(const ProjectParameters* project);
  /// Whether values that could not be computed count as 0 in the mean.
  [[nodiscard]] bool HasZeros(const MeansCell& cell, std::size_t measure) const;
  [[nodiscard]] MeansLines Lines() const;
  [[nodiscard]] bool IsKept(const std::string& path);
  void Save(const std::string& path, const std::string& bytes);
  [[nodiscard]] FileQuestion QuestionForSaving(const char* title, ResultFile file) const;

  Platform m_platform;
  std::function<void()> m_observer;
  const ProjectParameters* m_project = nullptr;
  std::string m_header;
  std::string m_path;     // the master shown, or ""
  std::string m_missing;  // why there is none
  bool m_isOwn = false;
  const char* m_reading = nullptr;  // what the subjects are being read for
  int m_unchecked = 0;              // rows that could not be scored again
  MasterTable m_table;
  std::optional<SerialPositionTable> m_serial;
  std::set<int> m_lurePositions;  // of the serial-position master
  std::vector<std::string> m_measureNames;
  std::vector<MeasureGroup> m_furtherGroups;
  FurtherColumns m_further = FurtherColumns::None;  // those in the list
  bool m_hasFurther = false;                        // they are computed
  MeansRequest m_request;
  MeansTable m_means;
  std::size_t m_uncomputed = 0;  // among the chosen measures of the master
  std::size_t m_lacking = 0;     // among the chosen further measures
  PlotShown m_shown = PlotShown::Means;
  PlotOptions m_options;
  std::string m_optionsOf;  // the master of the project for which they were chosen
  PlotPicture m_picture;
  WordList m_words;  // names the lures of the project's own master
  std::string m_effects;
  std::string m_status;
  std::vector<int> m_decimals;  // one per chosen measure
  int m_layoutRevision = 0;
  int m_resultRevision = 0;
};

}  // namespace zova
