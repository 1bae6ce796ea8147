// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFileOpenEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProxyStyle>
#include <QScreen>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <future>

#include "app/desktop/Application.h"
#include "app/desktop/OpenRequests.h"
#include "app/desktop/QtFileDialogs.h"
#include "app/desktop/QtMessageBoxes.h"
#include "app/desktop/Style.h"
#include "app/widgets/ChoiceForm.h"
#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"
#include "platform/desktop/FileSettings.h"
#include "support/Scratch.h"

namespace zova {
namespace {

TEST(QtMessageBoxesTest, EnterTakesTheDefaultAndEscapeTheSafeAnswer) {
  using enum BoxAnswer;
  struct Case {
    BoxButtons Buttons;
    BoxAnswer Default, Enter, Escape;
  };
  QtDesktop desktop;
  const BusyPointer outer(desktop), inner(desktop);
  for (const Case& c :
       {Case{BoxButtons::Ok, Ok, Ok, Ok}, Case{BoxButtons::YesNo, Yes, Yes, No}, Case{BoxButtons::YesNo, Ok, No, No},
        Case{BoxButtons::YesNoCancel, No, No, Cancel}, Case{BoxButtons::RetryCancel, Retry, Retry, Cancel}}) {
    for (const auto& [key, answer] : {std::pair{Qt::Key_Return, c.Enter}, {Qt::Key_Escape, c.Escape}}) {
      QTimer::singleShot(50, [key = key] {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the user has to answer";
        for (const auto* label : QApplication::activeModalWidget()->findChildren<QLabel*>()) {
          EXPECT_TRUE(label->text().isEmpty() || label->textFormat() == Qt::PlainText) << FromQt(label->text());
        }
        for (const auto type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
          QKeyEvent held(type, key, Qt::NoModifier, {}, true);
          QCoreApplication::sendEvent(QApplication::activeModalWidget()->windowHandle(), &held);
        }
        EXPECT_TRUE(QApplication::activeModalWidget()->isVisible()) << "a key that is held from before answers nothing";
        QTest::keyClick(QApplication::activeModalWidget(), key);
      });
      const MessageBox box = {.Text = "<b>", .Buttons = c.Buttons, .Default = c.Default, .Details = "R & D"};
      EXPECT_EQ(QtMessageBoxes(desktop).Show(box), answer) << key;
      EXPECT_NE(QApplication::overrideCursor(), nullptr);
    }
  }
}

TEST(QtMessageBoxesTest, AProtocolTypedBlindDoesNotAnswer) {
  QtDesktop desktop;
  QTimer::singleShot(50, [] {
    auto* box = QApplication::activeModalWidget();
    QTest::keyClicks(box, "12");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(box->isVisible());
    QTest::keyClick(box, Qt::Key_Escape);
  });
  const MessageBox box = {.Text = "?", .Buttons = BoxButtons::YesNo, .Default = BoxAnswer::Yes};
  EXPECT_EQ(QtMessageBoxes(desktop).Show(box), BoxAnswer::No);
}

TEST(StyleTest, KeepsDisabledTextsAndHintsReadableOnAnyPalette) {
  Style style;
  for (const auto& [ground, ink] : {std::pair(Qt::white, Qt::black), {Qt::black, Qt::white}}) {
    QPalette palette{QColor(ground)};
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      for (const auto role : {QPalette::Base, QPalette::Window, QPalette::Button})
        palette.setColor(group, role, ground);
      for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(group, role, group == QPalette::Disabled ? QColor(ground) : QColor(ink));
    }
    style.polish(palette);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
      EXPECT_GE(Contrast(palette.color(QPalette::Disabled, role), ground), 3) << role;
    EXPECT_GE(Contrast(palette.color(QPalette::Active, QPalette::PlaceholderText), ground), 4.5);
  }
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 1e-9);
}

// As the native style of Windows, whatever the palette says.
class PaleSelection final : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    if (element == PE_PanelItemViewItem) return painter->fillRect(option->rect, QColor("#e5f3ff"));
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
};

TEST(ColoursTest, IconsAreReadableOnTheSelectionThatTheStyleDraws) {
  QPixmap block(48, 48);
  block.fill(Qt::red);
  Style plain;
  PaleSelection pale;
  QListWidget list;
  QPalette palette(QApplication::palette());
  palette.setColor(QPalette::Highlight, "#0078d7");
  list.setPalette(palette);
  for (const auto& [style, ground] : {std::pair<QStyle*, QColor>(&plain, "#0078d7"), {&pale, "#e5f3ff"}}) {
    list.setStyle(style);
    const QIcon icon = IconForRows(QIcon(block), list);
    EXPECT_EQ(icon.pixmap(48).toImage().pixelColor(9, 9), QColor(Qt::red));
    const QColor ink = icon.pixmap(QSize(48, 48), QIcon::Selected).toImage().pixelColor(9, 9);
    EXPECT_GE(Contrast(ink, ground), 3) << FromQt(ink.name());
  }
  list.setStyle(nullptr);
}

TEST(ControlsTest, NamesFromRightToLeftAreSetApart) {
  const QString hebrew = QStringLiteral("\u05d0\u05d1");
  EXPECT_EQ(WithIsolatedNames("'" + hebrew + "' and 'ab' it's"),
            QStringLiteral("'\u2068") + hebrew + QStringLiteral("\u2069' and 'ab' it's"));
  EXPECT_EQ(WithIsolatedLines("Sex: " + hebrew + ", ab\n 1. c\nd"),
            QStringLiteral("Sex: \u2068") + hebrew + QStringLiteral("\u2069, ab\n 1. c\nd"));
}

TEST(QtMessageBoxesTest, AVeryLongTextScrolls) {
  std::string names = "1";
  for (int subject = 2; subject <= 10000; ++subject) names += ", " + std::to_string(subject);
  QtDesktop desktop;
  QTimer::singleShot(50, [] {
    auto* box = QApplication::activeModalWidget();
    EXPECT_LT(box->height(), box->screen()->availableSize().height());
    const auto* text = box->findChild<QPlainTextEdit*>("txtMessage");
    EXPECT_TRUE(text->isVisible());
    EXPECT_TRUE(text->toPlainText().endsWith(", 10000"));
    QTest::keyClick(box, Qt::Key_Return);
  });
  EXPECT_EQ(QtMessageBoxes(desktop).Show({.Text = names}), BoxAnswer::Ok);
}

TEST(QtFileDialogsTest, ANameWithoutAnEndingGetsThatOfTheChosenKind) {
  testing::Scratch scratch;
  Disk disk = scratch.MakeDisk();
  QtDesktop desktop;
  for (const auto& [kind, path] : {std::pair(0, "D:\\plot.pdf"), {1, "D:\\plot.svg"}, {2, "D:\\plot"}}) {
    QTimer::singleShot(50, [kind = kind] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      for (int i = 0; i < kind; ++i) QTest::keyClick(dialog->findChild<QWidget*>("fileTypeCombo"), Qt::Key_Down);
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText("plot");
      dialog->accept();
    });
    const FileQuestion question{"Save", "D:\\", {{"PDF", "*.pdf"}, {"SVG", "*.svg"}, {"All files", "*.*"}}, "P.pdf"};
    EXPECT_EQ(QtFileDialogs(disk, desktop).ChooseNewFile(question).value_or(""), path) << kind;
  }
}

TEST(OpenRequestsTest, ARunningCopyTakesTheProjectsThatItMayOpen) {
  testing::Scratch scratch;
  scratch.MakeDirectory("C:\\Settings");
  const QString directory = ToQt(PathText(scratch.Native("C:\\Settings")));
  OpenRequests running(directory), other(directory);
  std::string opened;
  bool mayOpen = true;
  running.Listen(
      {[] { return "C:\\Param"; }, [&] { return mayOpen; }, [&](const std::string& file) { opened = file; }});
  const auto send = [&](const std::string& param, int patience) {
    auto taken =
        std::async(std::launch::async, [&, param, patience] { return other.Send(param, "D:\\A.prm", patience); });
    const auto isReady = [&] { return taken.wait_for(std::chrono::seconds(0)) == std::future_status::ready; };
    EXPECT_TRUE(QTest::qWaitFor(isReady, 30000));
    return taken.get();
  };
  EXPECT_FALSE(send("D:\\Param", 100)) << "another Param";
  mayOpen = false;
  EXPECT_FALSE(send("C:\\Param", 100));
  EXPECT_EQ(opened, "");
  EXPECT_TRUE(QDir(directory).isEmpty()) << "a request that no one takes is withdrawn";
  mayOpen = true;
  EXPECT_TRUE(send("C:\\Param", 20000));
  EXPECT_EQ(opened, "D:\\A.prm");
}

TEST(ApplicationTest, KeepsTheDesktopsFilesUntilTheWindowCanOpenThem) {
  auto& application = static_cast<Application&>(*qApp);
  const auto give = [](const char* file) { QCoreApplication::postEvent(qApp, new QFileOpenEvent(QString(file))); };
  QStringList opened;
  give("/early.prm");
  QCoreApplication::processEvents();
  application.SetFileHandler([&](const QString& file) { opened.append(file); });
  EXPECT_EQ(opened, QStringList{"/early.prm"});
  give("/later.prm");
  QCoreApplication::processEvents();
  EXPECT_EQ(opened, (QStringList{"/early.prm", "/later.prm"}));
  application.SetFileHandler({});
}

// Users have files that Qt wrote, and may go back to a program that reads them with it.
TEST(FileSettingsTest, ReadsAndWritesWhatQtDoes) {
  const testing::Scratch scratch;
  const std::string path = PathText(scratch.Native("C:\\config.ini"));
  NativeFileLayer layer;
  Disk disk(layer, scratch.Drives());
  FileSettings settings(disk, path);
  for (const char* text : {"C:\\Param", "D:\\M\xC3\xBCller, R & D; 100%\\\"x\"=1", " blanks ",
                           "\tx\x01"
                           "2"}) {
    QSettings(ToQt(path), QSettings::IniFormat).setValue("Startup/ParamPath$", ToQt(text));
    EXPECT_EQ(settings.Get("Startup", "ParamPath$"), text);
    settings.Set("Startup", "Other key", text);
    EXPECT_EQ(FromQt(QSettings(ToQt(path), QSettings::IniFormat).value("Startup/Other key").toString()), text);
  }
}

TEST(ChoiceForm, KeepsTheFocusWhenOtherChoicesComeAndGo) {
  ChoiceForm form("fraChoices", [](const std::string&, int) {});
  form.Show({{"--tests", "Tests?", {"1"}, -1}, {"--times", "Times?", {"s"}, -1}});
  form.show();
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  form.findChild<QComboBox*>("cbo-times")->setFocus();
  form.Show({{"--times", "Times?", {"s"}, 0}, {"--others", "Others?", {"skip"}, -1}});
  EXPECT_TRUE(form.findChild<QComboBox*>("cbo-times")->hasFocus());
}

}  // namespace
}  // namespace zova
