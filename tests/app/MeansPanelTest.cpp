// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/MeansPanel.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QTest>
#include <QWindow>
#include <cmath>
#include <set>

#include "app/plots/PlotFile.h"
#include "app/plots/PlotView.h"
#include "app/screens/PlotOptionsDialog.h"
#include "session/QuickHelp.h"
#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

using MeansPanelTest = SessionTest;

TEST_F(MeansPanelTest, KeysReachTheRulesAndWhatComesOfThemShows) {
  m_scratch.Put("C:\\ZOVA\\Sample Data\\Example Master.txt",
                "ID, Experimenter, Interval, Net(Test 1), ArcScore(Test 1), Net(Test 2)\r\n1, 1, 2, 5, 0, 8\r\n");
  Session& session = OpenExample();
  session.ExamineMeans();
  ASSERT_EQ(session.Shown(), Screen::Means);
  MeansPanel panel(session);
  QObject::connect(&panel, &Panel::Acted, &panel, &Panel::Refresh);
  panel.show();
  panel.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
  const auto press = [&](int key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(panel.windowHandle(), static_cast<Qt::Key>(key), held);
  };
  const auto* table = panel.findChild<QTableView*>("grdMeans")->model();
  const auto shown = [&] {
    std::string text;
    for (int row = 0; row < table->rowCount(); ++row) {
      text += table->index(row, 0).data().toString().toStdString() + " " +
              table->index(row, 1).data().toString().toStdString() + "; ";
    }
    return text;
  };
  EXPECT_EQ(shown(), "Net(Test 1) 1; ");
  press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(shown(), "Net(Test 1) 1; ArcScore(Test 1) 1; ");
  press(Qt::Key_A), press(Qt::Key_N);  // by its letter
  press(Qt::Key_Home), press(Qt::Key_W, Qt::AltModifier);
  QTRY_COMPARE(shown(), "Net(Test 1) 1; Net(Test 2) 1; ");
  press(Qt::Key_V, Qt::AltModifier), press(Qt::Key_Space);
  EXPECT_EQ(shown(), "Net(Test 1) Joe; Net(Test 1) (all); Net(Test 2) Joe; Net(Test 2) (all); ");
  panel.findChild<QTableView*>("grdMeans")->setFocus();
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("Measure\tExperimenter\tn\tMean\t"));
  EXPECT_EQ(panel.findChild<QLabel*>("lblMeansStatus")->text(), "Copied 4 lines");
  panel.findChild<QLineEdit*>("txtFilter")->setText("arc");
  auto* measures = panel.findChild<QListWidget*>("lstMeasures");
  const auto inSight = [&] {
    int lines = 0;
    for (int row = 0; row < measures->count(); ++row) lines += measures->item(row)->isHidden() ? 0 : 1;
    return lines;
  };
  EXPECT_EQ(inSight(), 1);
  panel.findChild<QLineEdit*>("txtFilter")->clear();
  measures->setFocus();
  const int folded = inSight();
  press(Qt::Key_End), press(Qt::Key_Up), press(Qt::Key_Right), press(Qt::Key_Right);
  EXPECT_GT(inSight(), folded) << "Right unfolds";
  press(Qt::Key_Left), press(Qt::Key_Left);
  EXPECT_EQ(inSight(), folded);
  EXPECT_EQ(table->rowCount(), 4) << "the choice stays at a heading";
  session.Means().ChooseMeasures({});
  EXPECT_FALSE(table->index(0, 0).data().isValid()) << "asked for before the refresh";
  press(Qt::Key_Escape);
  EXPECT_EQ(session.Shown(), Screen::Main);
}

TEST(PlotView, EachPictureIsDrawnInEachFormat) {
  const PlotSeries one{"", false, {{1, 4.5, 1.5}, {2, 3, {}}}};
  const PlotSeries observed{"Test 1", false, {{1, .45, {}}, {2, .3, {}}}};
  const PlotSeries smoothed{"Test 1, smoothed", true, {{1, .4, {}}, {2, .3, {}}}};
  const std::pair<const char*, PlotPicture> kPictures[] = {
      {"one series", {"Sex", "Net recall (items)", {"Man", "Woman"}, {one}, false, "", ""}},
      {"a curve", {"Position", "Recalled (share)", {"1", "2"}, {observed, smoothed}, true, "", ""}},
      {"nothing", {"", "", {}, {}, true, "", "Choose a measure."}}};
  QLocale::setDefault(QLocale::German);
  for (const auto& [what, picture] : kPictures) {
    const QByteArray pdf = RenderPicture(picture, PlotFormat::Pdf);
    EXPECT_TRUE(pdf.startsWith("%PDF-")) << what;
    EXPECT_TRUE(pdf.contains("/ToUnicode")) << what << ": its text is text";
    const QByteArray svg = RenderPicture(picture, PlotFormat::Svg);
    const std::string label = picture.Series.empty() ? picture.Note : picture.YLabel;
    EXPECT_TRUE(svg.startsWith("<?xml")) << what;
    EXPECT_TRUE(svg.contains(">" + QByteArray::fromStdString(label) + "<")) << what;
    EXPECT_EQ(svg.contains("<title>" + QByteArray::fromStdString(label) + "</title>"), !picture.Series.empty()) << what;
    EXPECT_EQ(svg.contains(">0.2<"), picture.HasLines && !picture.Series.empty()) << "a point in every locale";
    EXPECT_TRUE(DrawnFigure(picture).starts_with("<svg ")) << what << ": a page has one prolog";
    const QImage png = QImage::fromData(RenderPicture(picture, PlotFormat::Png), "PNG");
    EXPECT_EQ(png.size(), QSize(1891, 1300)) << what;
    int inked = 0;
    for (int y = 0; y < png.height(); ++y) {
      for (int x = 0; x < png.width(); ++x) inked += qGray(png.pixel(x, y)) < 128;
    }
    EXPECT_GT(inked, 1000) << what;
    EXPECT_LT(inked, 100000) << what;
  }
  QLocale::setDefault(QLocale::c());
}

TEST(PlotView, TheChosenFrameIsDrawnAndLinesDoNotCrossABreak) {
  PlotPicture picture{"Lag", "CRP", {"-1", "0", "1"}, {{"", false, {{1, 3, {}}, {3, 4, {}}}}}, true, "", ""};
  picture.Break = 2;
  picture.Frame = {"By sex & a name that is longer than what fits above the axes of a plot of these few centimetres", 0,
                   10};
  const QByteArray svg = RenderPicture(picture, PlotFormat::Svg);
  EXPECT_TRUE(svg.contains(">By sex &amp; a name"));
  EXPECT_TRUE(svg.contains(">10<"));
  PlotView view("plotMeans");
  view.ShowPicture(picture);
  EXPECT_EQ(view.yAxis->range(), QCPRange(0, 10));
  EXPECT_TRUE(std::isnan(view.graph(0)->data()->at(1)->value));
  picture.Frame = {};
  view.ShowPicture(picture);
  EXPECT_LT(view.yAxis->range().upper, 5);
  EXPECT_EQ(view.plotLayout()->rowCount(), 2) << "without the title's";
}

TEST(PlotView, ARasterHasAMarkPerRecallAndRowsThatCanBeToldApart) {
  PlotPicture picture{"Output position", "Lists", {"1", "2"}, {}, true, "", ""};
  for (const std::size_t rows : {std::size_t{3}, std::size_t{500}}) {
    picture.Lists = {{{"Test 1, <young>", {}}},
                     {{"Study position 1", RasterLook::Graded, 0, {}}, {"Intrusion", RasterLook::Intrusion, 0, {}}}};
    for (std::size_t row = 0; row < rows; ++row) {
      picture.Lists.Groups[0].Rows.push_back("S" + std::to_string(row));
      picture.Lists.Marks[row % 2].Places.push_back({static_cast<int>(row % 2) + 1, row});
    }
    const QByteArray svg = RenderPicture(picture, PlotFormat::Svg);
    EXPECT_TRUE(svg.contains(">Test 1, &lt;young&gt;<"));
    EXPECT_EQ(svg.contains(">S2<"), rows == 3);
    EXPECT_TRUE(svg.contains(">Study position 1<"));
    PlotView view("plotMeans");
    view.resize(600, 300);
    view.ShowPicture(picture);
    EXPECT_EQ(view.minimumHeight() > 2500, rows == 500);
    int drawn = view.graph(0)->dataCount() + view.graph(1)->dataCount();
    for (int i = 0; i < view.plottableCount(); ++i) {
      const auto* dashes = qobject_cast<const QCPCurve*>(view.plottable(i));
      drawn += dashes ? dashes->dataCount() / 3 : 0;
    }
    EXPECT_EQ(drawn, static_cast<int>(rows));
  }
}

TEST(PlotOptionsDialog, KeysReachEveryAnswer) {
  PlotAnswers given{"", "", "", RasterColours::StudyPosition, {{1, "Age", {"young", "old"}}, {0, "Sex", {"M", "W"}}}};
  PlotAnswers taken;
  int helped = 0;
  bool isFit = false;
  PlotOptionsDialog dialog(
      given, PlotShown::Means, [&](const auto& answers) { return taken = answers, isFit; }, [&] { ++helped; }, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  const auto press = [&](int key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(dialog.windowHandle(), static_cast<Qt::Key>(key), held);
  };
  QTest::keyClicks(dialog.focusWidget(), "Title");
  press(Qt::Key_A, Qt::AltModifier), QTest::keyClicks(dialog.focusWidget(), "9");
  press(Qt::Key_F, Qt::AltModifier), QTest::keyClicks(dialog.focusWidget(), "-1");
  press(Qt::Key_R, Qt::AltModifier), press(Qt::Key_Down, Qt::ControlModifier);  // Age below Sex
  press(Qt::Key_Down), press(Qt::Key_U, Qt::AltModifier);                       // young is first already
  press(Qt::Key_Down), press(Qt::Key_U, Qt::AltModifier);
  press(Qt::Key_F1), press(Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible()) << "the answers do not do";
  isFit = true;
  press(Qt::Key_O, Qt::AltModifier);
  QTRY_VERIFY(!dialog.isVisible());
  EXPECT_EQ(taken.Title + taken.Min + taken.Max, "Title-19");
  ASSERT_EQ(taken.Factors.size(), 2U);
  EXPECT_EQ(taken.Factors[0].Name + taken.Factors[1].Name, "SexAge");
  EXPECT_EQ(taken.Factors[1].Levels, (std::vector<std::string>{"old", "young"}));
  EXPECT_EQ(helped, 1);
  std::multiset<QString> keys;
  for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    if (label) keys.insert(QKeySequence::mnemonic(label->text()).toString());
    if (button && !button->text().isEmpty()) keys.insert(button->shortcut().toString());
    if (!label && !button && !qobject_cast<const QLineEdit*>(widget)) continue;
    EXPECT_FALSE(QuickHelp(widget->objectName().toStdString()).empty()) << widget->objectName().toStdString();
  }
  EXPECT_EQ(std::set<QString>(keys.begin(), keys.end()).size(), keys.size());
}

TEST(PlotView, ManyNamesStandBelowTheAxesAndLeaveThemTheirRoom) {
  PlotPicture picture{"Sex", "Net recall (items)", {"Man", "Woman"}, {}, false, "", ""};
  for (int line = 1; line <= 41; ++line) {
    picture.Series.push_back({"Line no. " + std::to_string(line), false, {{1, 4.5, 1.5}, {2, 3, {}}}});
  }
  EXPECT_EQ(RenderPicture(picture, PlotFormat::Svg).count(">Line no. "), 41);
  const QImage png = QImage::fromData(RenderPicture(picture, PlotFormat::Png), "PNG");
  EXPECT_EQ(png.width(), 1891);
  EXPECT_GT(png.height(), 1600);
  EXPECT_LT(png.height(), 2200);
  PlotView view("plotMeans");
  view.show();                          // sizes reach only what is shown
  for (const int width : {560, 700}) {  // redrawn over places left empty
    view.resize(width, 256);
    view.ShowPicture(picture);
    EXPECT_GE(view.axisRect()->outerRect().height(), 115);
    EXPECT_LE(view.legend->outerRect().bottom(), 256 - view.fontMetrics().height()) << "its last line says what lacks";
    EXPECT_LT(view.legend->itemCount(), 41);
  }
  std::set<std::pair<int, bool>> symbols;
  for (int line = 0; line < 13; ++line) {
    const QCPScatterStyle& style = view.graph(line)->scatterStyle();
    symbols.emplace(style.shape(), style.brush().color() == Qt::white);
  }
  EXPECT_EQ(symbols.size(), 13U);
  std::size_t bars = 0;
  for (int i = 0; i < view.plottableCount(); ++i) {
    const auto* intervals = qobject_cast<const QCPErrorBars*>(view.plottable(i));
    if (intervals && intervals->visible() && intervals->data()->at(0).errorPlus == 1.5) ++bars;
  }
  EXPECT_EQ(bars, 41U);
}

}  // namespace
}  // namespace zova::testing
