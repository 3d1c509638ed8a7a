#pragma once

// Everything that the library does and meets, as journal lines. It listens at all the places where that can be heard:
// the simulated objects, the wrapped services, the library's log and picture loads.

#include <deque>
#include <string_view>

#include "drawing/LoadImageFromResource.h"
#include "foundation/CommonLogger.h"
#include "platform/wrappers/call_recorder.h"
#include "play/journal.h"
#include "play/journal_naming.h"
#include "wordsim/use_observer.h"

namespace strandline::play {

class LibraryWatch final : public wordsim::UseObserver,
                           public CallRecorder,
                           public LogObserver,
                           public PictureObserver {
 public:
  // Both outlive the watch.
  LibraryWatch(Journal& journal, const JournalNaming& naming) : mJournal(journal), mNaming(naming) {}

  void OnUse(const wordsim::ObjectUse& use) override;
  void Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) override;
  void OnLog(TextView message, Long level) override;
  void OnPicture(Integer index, Long hModule, Boolean ok) override;

  void OnCreate(const String& progId, bool ok);
  void OnPaint(Long hwnd, const Rect& pixels);
  // A message box: the next answer of the scene, else OK, or Yes where the box asks.
  Long OnBox(const String& text, Long style, const String* title);
  void AnswerNextBox(Long answer) { mBoxAnswers.push_back(answer); }

 private:
  void RecordHook(std::string_view step, std::span<const CallArgument> arguments);
  void NameContext(Json& arguments, std::size_t place) const;
  Json Argument(const CallArgument& argument) const;
  Json ArgumentsOf(std::string_view call, std::span<const CallArgument> arguments) const;

  Journal& mJournal;
  const JournalNaming& mNaming;
  std::deque<Long> mBoxAnswers;
};

}  // namespace strandline::play
