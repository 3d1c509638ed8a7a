#pragma once

// An error component that answers as it is told and writes down, in one log, each call with its arguments, its birth
// and its end.

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/variant.h"

namespace strandline {

using LogLines = std::vector<std::string>;

// A value as a log shows it: texts in quotes, a line's end as |.
std::string Shown(const Variant& value);

// What one question to the component was about.
struct Question {
  Long number = 0;
  std::string description;
  std::string project;
  std::string module;
  std::string procedure;
  Long line = 0;
  Long depth = 0;
  LogLines stack;  // all 64 names, stale ones included

  // The names that are on the stack still.
  LogLines Running() const;
  // "number module.procedure"
  std::string Brief() const;
};

// What the components do, one after the other, and what they were asked; outlives them.
class ErrorScript {
 public:
  void Answer(std::vector<Variant> answers) { mAnswers = std::move(answers); }
  // The next calls of that member raise.
  void Fail(const std::string& member, int times = 1000) { mFailures[member] = times; }
  // Called within each call, before it fails or answers.
  void During(std::function<void(const std::string& member)> during) { mDuring = std::move(during); }

  Object Create();

  // "born", "gone", and the calls with their arguments; a question bears its number alone.
  LogLines log;
  std::vector<Question> questions;
  // The numbers, modules and procedures of the questions.
  LogLines Asked() const;
  // The log's calls of one member.
  LogLines CallsOf(const std::string& member) const;

 private:
  class Component;
  Variant Called(const std::string& member, std::span<const Variant> arguments);

  std::vector<Variant> mAnswers;  // 0 when they are used up
  std::map<std::string, int> mFailures;
  std::function<void(const std::string&)> mDuring;
};

}  // namespace strandline
