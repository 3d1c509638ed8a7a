#pragma once

// A day of a user who does anything at any time, as a seed has it: documents come and go, the mouse wanders, presses
// and clicks, macros click again, members fail, windows change, ads fade, values change and ad libraries come anew.
// After each step what must always hold is looked at.

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/support/world.h"

namespace strandline::day {

class RandomDay {
 public:
  explicit RandomDay(std::uint64_t seed);
  ~RandomDay();
  RandomDay(const RandomDay&) = delete;
  RandomDay& operator=(const RandomDay&) = delete;

  // One thing that the user does. What is wrong afterwards; empty when nothing is. Where the library waits for a bar
  // that will never show, as it must, the day goes on with another Word.
  std::string Step();
  // Word is left, the library goes, and another Word is started. What was left behind; empty when nothing was.
  std::string BeginAnew();
  // The last steps, one a line.
  std::string LastSteps() const;

 private:
  struct Act {
    int weight;
    const char* name;
    void (RandomDay::*run)();
  };
  static const std::vector<Act>& Acts();

  void Start();
  void Abandon();
  bool Chance(int of);  // one in so many
  Long Below(Long bound) { return static_cast<Long>(mRandom() % static_cast<std::uint64_t>(bound)); }
  String AnyDocument();  // the name of one that is open; empty when none is
  Point AnyPlace();      // on or about the strip, screen pixels

  void OpenDocument();
  void CloseDocument();
  void Vanish();
  void Activate();
  void Move();
  void Drag();
  void Press();
  void Release();
  void DoubleClick();
  void RightClick();
  void Leave();
  void Click();
  void Wait();
  void Resize();
  void Dock();
  void Minimise();
  void Restore();
  void Cover();
  void Rename();
  void Execute();
  void DropCell();
  void Mail();
  void FailMember();
  void AnswerErrors();

  // random_day_ads.cpp
  void ServeAds();
  void WaitForAds();
  void ChangeValue();
  void ExchangeLibrary();
  void LoseComponent();

  // What the product's macro on a control does.
  void RunMacro(Long control);
  void ClickOn(Long cell);
  void Say(std::string what) { mSteps.push_back(std::move(what)); }

  std::string Wrong();
  std::string WrongOfCapture();
  std::string WrongOfToolbars();
  std::string WrongOfPaints();
  std::string LeftBehind();

  std::mt19937_64 mRandom;
  std::unique_ptr<World> mWorld;
  std::vector<std::string> mSteps;
  std::size_t mBitmapsAtStart = 0;
  Long mDocuments = 0;  // so far, for their names
  int mMacros = 0;      // that run one inside the other
  bool mIsCovered = false;
  bool mStickyFailed = false;  // a click on the sunken cell failed: its strip may stay as it was then
};

}  // namespace strandline::day
