// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ParamLocation.h"

#include "support/FakePlatform.h"
#include "support/Scratch.h"

using namespace zova;
using namespace zova::testing;

using Step = LocationOutcome::Step;

namespace {

const std::string kOld = "C:\\Old\\Param";  // registered in every case but the first run
const std::string kMoved = "'Param' directory successfully moved!";
const std::string kParamCreated = "'Param' directory successfully created.";
const std::string kUndeleted = "ZOVA could not delete the old directory.";

const ExpectedBox kNotFound = Told("Path not found.  Please verify that the correct disk is in the drive.");
ExpectedBox Restore(BoxAnswer answer) {
  const std::string text = "Do you want to restore this directory to the original 'Param' location at: '" + kOld +
                           "'?  If you select 'No' then ZOVA will register its current location.";
  return {text, answer, "", BoxIcon::Question, BoxButtons::YesNoCancel, BoxAnswer::No};
}
ExpectedBox Replace(const std::string& name, BoxAnswer answer) {
  return Warned("The new location already holds '" + name + "'.  Do you wish to replace it?", answer);
}

/// Yes to all questions but whether to try again.
class YesBoxes final : public MessageBoxes {
  BoxAnswer Show(const MessageBox& box) override {
    return box.Buttons == BoxButtons::RetryCancel ? BoxAnswer::Cancel : BoxAnswer::Yes;
  }
};

/// The screen, with "a.prm" and "b.prm" in the directory `from`.
struct Rig : Scratch {
  Rig(MessageBoxes& boxes, const std::string& from) : Boxes(boxes) {
    MakeDirectory("C:\\ZOVA");
    if (!from.empty()) Put(from + "\\a.prm", "a"), Put(from + "\\b.prm", "b");
    if (!from.empty()) Fakes.Settings.Values["Startup/ParamPath$"] = kOld;
    Param.Load(), Location.Open(), Param.Lock(from);
  }
  std::string Stored() { return Fakes.Settings.Values["Startup/ParamPath$"]; }
  bool IsWhole(const std::string& in) const {
    return Has(in + "\\b.prm") && Get(in + "\\a.prm") + Get(in + "\\b.prm") == "ab";
  }
  MessageBoxes& Boxes;
  FakePlatform Fakes;
  ParamDirectory Param{Fakes.Settings, Files};
  ParamLocation Location{Param, "C:\\ZOVA", Fakes.With(Files, Boxes)};
};

}  // namespace

TEST(ParamLocation, Accepts) {
  const ExpectedBox already = Told("This already is the location of the 'Param' folder.");
  const ExpectedBox inUse = Told("ZOVA is already running with this 'Param' directory.", BoxIcon::Critical);
  const ExpectedBox unstored{TextOf(std::errc::io_error), BoxAnswer::Cancel, "ZOVA.ini"};
  const std::string lost = "D:\\F\\Param";
  const struct {
    std::string From, Extra;  // where the files are, and a file that is there as well
    std::string Text;
    std::vector<ExpectedBox> Boxes;
    std::string Message, Place;  // with which it closes, and what is registered then; "" when nothing may change
    bool Ends = false;
    bool StoresAndFails = false, IsStopped = false;
  } cases[] = {
      {kOld, "", "D:\\New\\Deep\\", {}, kMoved, "D:\\New\\Deep\\Param"},
      {kOld, "", "(none)", {kNotFound}, "", ""},
      {kOld, "", "X:\\", {kNotFound}, "", ""},
      {kOld, "", "D:\\a*b", {kNotFound}, "", ""},
      {kOld, "D:\\Param", "D:\\", {kNotFound}, "", ""},
      {kOld, "", "c:\\OLD", {already}, "", ""},
      {kOld, "", "C:\\Old\\Param\\x", {already}, "", ""},
      {kOld, "D:\\Used\\Param\\x", "D:\\Used", {inUse}, "", ""},
      {kOld, "D:\\Param\\B.PRM", "D:", {Replace("b.prm", BoxAnswer::No)}, "", ""},
      {kOld, "D:\\Param\\b.prm", "D:", {Replace("b.prm", BoxAnswer::Yes)}, kMoved, "D:\\Param"},
#ifndef _WIN32  // two names that differ in case alone
      {kOld, kOld + "\\A.prm", "D:\\", {Replace("a.prm", BoxAnswer::No)}, "", ""},
#endif
      {kOld, kOld + "\\x\\y", "D:\\", {}, kUndeleted, "D:\\Param"},
      {kOld, "", "D:\\", {unstored}, "", ""},
      {kOld, "", "D:\\", {unstored}, "", "", false, true},
      {kOld, "", "D:\\", {}, "", "", false, false, true},  // between its two files
      {lost, "", "D:\\F", {Restore(BoxAnswer::No), unstored}, "", ""},
      {lost, "", "D:\\F", {Restore(BoxAnswer::Cancel)}, "", ""},
      {lost, "", "D:\\F", {Restore(BoxAnswer::No)}, "'Param' directory successfully registered.", lost},
      {lost, "", "D:\\F", {Restore(BoxAnswer::Yes)}, kMoved, kOld},
      {lost, "D:\\Used\\Param\\x", "D:\\Used", {Restore(BoxAnswer::Yes), inUse}, "", "", true},
      {lost, "", "C:\\Old", {}, kParamCreated, kOld},
      {"", "", "C:\\", {}, kParamCreated, "C:\\Param"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text + " with " + c.Extra);
    ScriptedBoxes boxes;
    for (const ExpectedBox& box : c.Boxes) boxes.Expect(box);
    Rig rig(boxes, c.From);
    rig.Fakes.Settings.Failures = !c.Boxes.empty() && c.Boxes.back().Text == unstored.Text ? 1 : 0;
    rig.Fakes.Settings.StoresAndFails = c.StoresAndFails;
    if (c.IsStopped) rig.Fakes.Bar.StopsAt = 1;
    if (!c.Extra.empty()) rig.Put(c.Extra, "x");
    DirectoryLock other;
    if (c.Extra.starts_with("D:\\Used")) other.Acquire(rig.Native("D:\\Used\\Param"));
    const Tree before = rig.Snapshot();
    const LocationOutcome outcome = rig.Location.Accept(c.Text);
    EXPECT_FALSE(rig.Fakes.Bar.IsCopying);
    EXPECT_EQ(outcome.Next, c.Ends ? Step::EndProgram : c.Place.empty() ? Step::Stay : Step::Close);
    EXPECT_EQ(outcome.Message ? outcome.Message->Text : "", c.Message);
    EXPECT_EQ(rig.Stored(), c.Place.empty() ? kOld : c.Place);
    EXPECT_TRUE(!c.Place.empty() || rig.Snapshot() == before);
    if (!outcome.Message) continue;
    EXPECT_EQ(outcome.Message->Icon, c.Message == kUndeleted ? BoxIcon::Exclamation : BoxIcon::Information);
    EXPECT_EQ(rig.IsWhole(c.Place), c.Message != kParamCreated);
    if (c.Message == kMoved) {
      EXPECT_FALSE(rig.Has(c.From));
    }
    EXPECT_EQ(rig.Has(c.Place + "\\Example.prm"), c.Message == kParamCreated);
    EXPECT_EQ(other.Acquire(rig.Native(c.Place)), DirectoryLock::Outcome::InUse);
  }
}

// Each call of a move, or of moving a found directory back, fails once and is given up. No half-filled directory is
// left where a whole one was to be.
TEST(ParamLocation, AMoveThatFailsLosesNothing) {
  const std::string other = "D:\\Param";
  for (const auto& [from, to] : {std::pair(kOld, other), std::pair(other, kOld)}) {
    for (int n = 1, failed = 1; failed == 1; n += kFailureStep) {
      YesBoxes boxes;
      Rig rig(boxes, from);
      rig.Faults.FailAt(n);
      const LocationOutcome outcome = rig.Location.Accept("D:\\");
      const std::string call = from + ", call " + std::to_string(n) + ": " + rig.Faults.FailedCall();
      failed = rig.Faults.HasFailed() ? 1 : 0;
      const bool moved = outcome.Next == Step::Close;
      EXPECT_EQ(rig.Has(to), moved) << call;
      EXPECT_TRUE(rig.IsWhole(moved ? to : from)) << call;
      EXPECT_EQ(rig.Stored(), moved ? to : kOld) << call;
      if (rig.Faults.FailedCall() == "Rename") {
        EXPECT_EQ(DirectoryLock().Acquire(rig.Native(from)), DirectoryLock::Outcome::InUse) << call;
      }
      EXPECT_TRUE(failed == 1 || outcome.Message->Text == kMoved);
    }
  }
}

TEST(ParamLocation, CopiesThatTheSettingMayNameStay) {
  YesBoxes boxes;
  Rig rig(boxes, kOld);
  rig.Fakes.Settings.Failures = 2;
  rig.Fakes.Settings.StoresAndFails = true;
  EXPECT_EQ(rig.Location.Accept("D:\\").Next, Step::Stay);
  EXPECT_TRUE(rig.IsWhole(kOld));
  EXPECT_TRUE(rig.IsWhole("D:\\Param"));
}

TEST(ParamLocation, RefusesOnceToGoWithoutADirectory) {
  const auto cancelled =
      Told("You cannot continue using ZOVA without selecting a location for the 'Param' Directory.", BoxIcon::Critical);
  const auto closed = Told("You cannot use ZOVA without selecting a location for the param directory.");
  // c: Cancel, x: the window's closing, o: another act, a: an OK that is refused
  for (const std::string acts : {"cc", "cx", "xc", "xx", "coc", "xocc", "cac"}) {
    ScriptedBoxes boxes;
    Rig rig(boxes, "");
    Step next = Step::Stay;
    for (const char act : acts) {
      EXPECT_EQ(next, Step::Stay) << acts;
      if (act != 'o') boxes.Expect(act == 'c' ? cancelled : act == 'x' ? closed : kNotFound);
      if (act == 'o') rig.Location.NoteOtherAct();
      if (act == 'a') next = rig.Location.Accept("").Next;
      if (act == 'c') next = rig.Location.Cancel().Next;
      if (act == 'x') next = rig.Location.Close().Next;
    }
    EXPECT_EQ(next, acts == "coc" || acts == "cac" ? Step::Stay : Step::EndProgram) << acts;
  }
}
