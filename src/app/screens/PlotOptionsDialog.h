// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>
#include <optional>

#include "means/MeansExaminer.h"

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace zova {

/// Asks for title, axis, colours and the order of variables and levels of the plot that is shown.
class PlotOptionsDialog : public QDialog {
  Q_OBJECT

 public:
  /// `answer` takes the answers, and is false for some that do not do; `help` explains the dialog.
  PlotOptionsDialog(PlotAnswers answers, PlotShown shown, std::function<bool(const PlotAnswers&)> answer,
                    const std::function<void()>& help, QWidget* parent);
  void accept() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] QWidget* MakeFrame(PlotShown shown);
  [[nodiscard]] QWidget* MakeOrder();
  void ShowOrder();
  void ShowMoves();
  /// The place that the current line has among its like, and theirs.
  struct Line {
    std::size_t Factor = 0;
    std::optional<std::size_t> Level;  ///< none for the line of the variable
  };
  [[nodiscard]] std::vector<Line> Lines() const;
  [[nodiscard]] bool CanMove(int step) const;
  void Move(int step);

  PlotAnswers m_answers;
  std::function<bool(const PlotAnswers&)> m_answer;
  QLineEdit* m_txtPlotTitle;
  QLineEdit* m_txtAxisMin;
  QLineEdit* m_txtAxisMax;
  QComboBox* m_cboRasterColours;
  QListWidget* m_lstPlotOrder;
  QPushButton* m_cmdPlotUp;
  QPushButton* m_cmdPlotDown;
};

}  // namespace zova
