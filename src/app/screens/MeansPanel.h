// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "app/widgets/Panel.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QTableView;

namespace zova {

class MeansExaminer;
class MeansModel;
class PlotView;
class Session;

/// Means by the levels of the variables: the selection on the left, table above plot on the right.
class MeansPanel : public Panel {
  Q_OBJECT

 public:
  explicit MeansPanel(Session& session);

 protected:
  void ShowState() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] QWidget* MakeChoices();
  [[nodiscard]] QWidget* MakeResults();
  [[nodiscard]] QWidget* MakePlot();
  void AddButtons();
  void FillLists();
  void AddHeadings();
  [[nodiscard]] int RowOf(std::size_t measure) const;
  [[nodiscard]] std::vector<std::size_t> ChosenMeasures() const;
  [[nodiscard]] std::vector<std::size_t> ChosenVariables() const;
  /// Folds or unfolds the group; without `isFolded` it changes its state. False for a line that is no heading.
  bool Fold(const QListWidgetItem* line, std::optional<bool> isFolded = std::nullopt);
  void ShowChosen();
  void ShowFiltered();
  void HideFiltered();
  void Copy();
  void AskPlotOptions();
  void SavePlot();
  void SaveReport();

  Session& m_session;
  MeansExaminer& m_rules;
  QLabel* m_lblMeansFile;
  QLabel* m_lblMeansNote;
  QLabel* m_lblMeansStatus;
  QLineEdit* m_txtFilter;
  QListWidget* m_lstMeasures;
  QListWidget* m_lstMeansVariables;
  QPushButton* m_cmdMeansFamily = nullptr;
  QCheckBox* m_chkMeansLeaveOut;
  QCheckBox* m_chkMeansMore;
  QComboBox* m_cboPlot;
  QComboBox* m_cboBars;
  QPushButton* m_cmdPlotOptions = nullptr;
  QTableView* m_grdMeans;
  MeansModel* m_model;
  PlotView* m_plotMeans;
  QLabel* m_lblMeansEffects;
  QLabel* m_lblPlotNote;
  QPushButton* m_cmdMeansCopy = nullptr;
  QPushButton* m_cmdMeansSave = nullptr;
  QPushButton* m_cmdPlotSave = nullptr;
  QPushButton* m_cmdReport = nullptr;
  struct Heading {
    QListWidgetItem* Line;
    bool IsFolded;
  };
  QListWidgetItem* m_furtherTitle = nullptr;
  std::vector<Heading> m_headings;  // of the groups of further measures, each before its first one
  int m_layoutRevision = -1;        // as last shown
};

}  // namespace zova
