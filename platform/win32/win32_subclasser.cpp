#include "platform/win32/win32_subclasser.h"

#include <atomic>

#include "platform/win32/comctl_hooks.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

// Written by the library's thread alone, so that counting needs no lock; read by any.
std::atomic<Long> theLiveHooks{0};

void CountHooks(Long change) {
  theLiveHooks.store(theLiveHooks.load(std::memory_order_relaxed) + change, std::memory_order_release);
}

struct Running {
  Running() { CountHooks(1); }
  ~Running() { CountHooks(-1); }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
};

// A message with its parameters as wide as they came. A sink sees 32 bits of each; what it passes on unchanged goes on
// whole, and so does the answer.
struct WideMessage {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;

  bool Matches(Long uMsg, Long narrowWParam, Long narrowLParam) const {
    return message == static_cast<UINT>(uMsg) && static_cast<Long>(wParam) == narrowWParam &&
           static_cast<Long>(lParam) == narrowLParam;
  }
};

// A message that the sink is being asked about, and what CallPreviousProc answered meanwhile, as wide as it came.
struct Question {
  const WideMessage& message;
  LRESULT previous = 0;

  // The answer that the sink gives: where it passes on the previous one, all of that. A 0 may be none of its giving.
  LRESULT Whole(Long answer) const { return answer != 0 && static_cast<Long>(previous) == answer ? previous : answer; }
};

class Link;

// What CallPreviousProc asks of the chain.
struct Request {
  const Link* from;
  WideMessage message;
  LRESULT answer;
  bool isAnswered;
};

// A message of our own by which a request comes down the chain to the hook that makes it. Only from there can what is
// below be called, and a call from within the hook's event wouldn't do: some systems lose their place in the chain by
// it, and what the event then lets go on would pass older hooks by.
UINT theRequestMessage = 0;
Request* theRequest = nullptr;

// A hook as its window knows it. It belongs to its Hook and, as long as the window can call it, to the window.
class Link final : public RefCounted {
 public:
  // Null where the window can't be hooked.
  static Ref<Link> PutOn(HWND window, MessageSink* sink) {
    const ComctlHooks& chain = ComctlHooks::Get();
    if (!chain.IsThere() || !::IsWindow(window)) return nullptr;
    if (theRequestMessage == 0) theRequestMessage = ::RegisterWindowMessageW(L"Strandline.PreviousProcedure");
    static UINT_PTR lastId = 0;
    Ref<Link> link(new Link(chain, window, ++lastId, sink));
    if (!chain.set(window, &Link::Procedure, link->mId, reinterpret_cast<DWORD_PTR>(link.get()))) return nullptr;
    chain.OwnProcedure(::IsWindowUnicode(window));  // while there is time for it
    link->mIsOnWindow = true;
    link->AddRef();
    CountHooks(1);
    return link;
  }

  void SetSink(MessageSink* sink) { mSink = sink; }

  Long CallPrevious(Long uMsg, Long wParam, Long lParam) {
    if (!mIsOnWindow) return 0;
    const Ref<Link> alive(this);
    WideMessage message{static_cast<UINT>(uMsg), static_cast<WPARAM>(wParam), static_cast<LPARAM>(lParam)};
    if (mCurrent && mCurrent->message.Matches(uMsg, wParam, lParam)) message = mCurrent->message;
    Request request{this, message, 0, false};
    Request* const outer = std::exchange(theRequest, &request);
    ::SendMessageW(mWindow, theRequestMessage, 0, reinterpret_cast<LPARAM>(&request));
    theRequest = outer;
    // Somebody above may let nothing unknown through.
    if (!request.isAnswered && mCurrent) request.answer = PassOn(message);
    if (mCurrent) mCurrent->previous = request.answer;
    return static_cast<Long>(request.answer);
  }

  // Takes the hook off its window. Where somebody else has a procedure on top of the chain, taking it off could put the
  // window's own procedure back over theirs: then the hook stays, passes everything on, and goes when they have gone.
  void TakeOff() {
    mSink = nullptr;
    mIsWanted = false;
    if (mIsOnWindow && (!::IsWindow(mWindow) || IsChainOnTop())) Leave();
  }

 private:
  Link(const ComctlHooks& chain, HWND window, UINT_PTR id, MessageSink* sink)
      : mChain(chain), mWindow(window), mId(id), mSink(sink) {}

  static LRESULT CALLBACK Procedure(HWND, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR data) {
    const Running running;
    const Ref<Link> link(reinterpret_cast<Link*>(data));  // its event may drop it
    return link->OnMessage({message, wParam, lParam});
  }

  LRESULT OnMessage(const WideMessage& message) {
    if (message.message == theRequestMessage && theRequest && message.lParam == reinterpret_cast<LPARAM>(theRequest)) {
      return OnRequest(message);
    }
    LRESULT answer = 0;
    const bool cancelled = mSink && Ask(message, answer);
    if (message.message == WM_NCDESTROY) {
      if (mIsOnWindow) Leave();
    } else if (!mIsWanted) {
      TakeOff();
    }
    return cancelled ? answer : PassOn(message);
  }

  LRESULT OnRequest(const WideMessage& message) {
    if (theRequest->from != this) return PassOn(message);
    Request& request = *std::exchange(theRequest, nullptr);
    request.isAnswered = true;
    request.answer = PassOn(request.message);
    return 0;
  }

  LRESULT PassOn(const WideMessage& message) const {
    return mChain.passOn(mWindow, message.message, message.wParam, message.lParam);
  }

  // True if the sink keeps the message. Nothing thrown may go through the system's frames.
  bool Ask(const WideMessage& message, LRESULT& answer) {
    Question question{message};
    Question* const outer = std::exchange(mCurrent, &question);
    Long narrow = 0;
    Boolean cancel = false;
    try {
      mSink->BeforeMessage(static_cast<Long>(message.message), static_cast<Long>(message.wParam),
                           static_cast<Long>(message.lParam), narrow, cancel);
    } catch (...) {
      cancel = false;
    }
    mCurrent = outer;
    answer = question.Whole(narrow);
    return cancel;
  }

  // What the window had when this was put on doesn't tell: the chain may have been there, under somebody else's.
  bool IsChainOnTop() const { return ProcedureOf(mWindow) == mChain.OwnProcedure(::IsWindowUnicode(mWindow)); }

  void Leave() {
    if (!mChain.remove(mWindow, &Link::Procedure, mId) && ::IsWindow(mWindow)) return;
    mIsOnWindow = false;
    CountHooks(-1);
    Release();
  }

  const ComctlHooks& mChain;
  const HWND mWindow;
  const UINT_PTR mId;
  MessageSink* mSink;
  Question* mCurrent = nullptr;  // null outside the sink's event
  bool mIsOnWindow = false;
  bool mIsWanted = true;
};

class Hook final : public Subclasser {
 public:
  void SetSink(MessageSink* sink) override {
    mSink = sink;
    if (mLink) mLink->SetSink(sink);
  }
  void Subclass(Long hwnd) override {
    if (mIsUsed) return;
    mLink = Link::PutOn(ToHandle<HWND>(hwnd), mSink);
    mIsUsed = static_cast<bool>(mLink);
  }
  Long CallPreviousProc(Long uMsg, Long wParam, Long lParam) override {
    const Ref<Link> link = mLink;
    return link ? link->CallPrevious(uMsg, wParam, lParam) : 0;
  }
  void Unsubclass() override {
    if (const Ref<Link> link = std::exchange(mLink, nullptr)) link->TakeOff();
  }

 protected:
  void Terminated() override { Unsubclass(); }

 private:
  MessageSink* mSink = nullptr;
  Ref<Link> mLink;  // null unless it was put on a window
  bool mIsUsed = false;
};

}  // namespace

Ref<Subclasser> Win32Subclassers::Create() { return New<Hook>(); }

Long LiveHooks() { return theLiveHooks.load(std::memory_order_acquire); }

}  // namespace strandline::win32
