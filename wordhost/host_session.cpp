#include "wordhost/host_session.h"

#include "platform/win32/win32_variant.h"
#include "play/png_file.h"
#include "wordhost/window_pixels.h"
#include "wordsim/document.h"
#include "wordsim/product.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

constexpr const char16_t* kSettingsKey = u"Software\\Morvane\\Strandline";

// What an object's own class is called; empty where it doesn't tell.
std::string ClassNameOf(IDispatch& object) {
  win32::ComRef<IProvideClassInfo> provider;
  win32::ComRef<ITypeInfo> type;
  if (FAILED(object.QueryInterface(IID_IProvideClassInfo, provider.PutVoid()))) return "";
  if (FAILED(provider->GetClassInfo(type.Put()))) return "";
  BSTR name = nullptr;
  if (FAILED(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) return "";
  const std::string text = ToUtf8(win32::FromBstr(name).View());
  ::SysFreeString(name);
  return text;
}

wordsim::Settings InFolder(wordsim::Settings settings, const String& folder) {
  settings.commonAppPath = folder;
  return settings;
}

}  // namespace

struct HostSession::DocumentFace {
  explicit DocumentFace(wordsim::Document& of) : document(&of) {
    const Object object{Ref<Dispatch>(&of)};
    *face.Put() = win32::Unwrap(object);
    number = win32::ToNumber(face.get());
  }

  Ref<wordsim::Document> document;
  win32::ComRef<IDispatch> face;
  Long number = 0;
};

HostSession::HostSession(const play::SceneSettings& settings, Surroundings surroundings, bool keepLines)
    : mSurroundings(std::move(surroundings)),
      mPlatform(kSettingsKey),
      mJournal(
          &mSurroundings.journal, [this] { return mClock.Milliseconds(); }, keepLines),
      mNaming({[this](Long hwnd) { return mWorld.WindowName(hwnd); }, nullptr, &HostSession::NameOf,
               [this](std::string text) { return TextInJournal(std::move(text)); }}),
      mWatch(mJournal, mNaming),
      mWorld(mPlatform.Services(), mWindows, mCanvas, mClock, InFolder(settings.world, mAdFolder.Path())),
      mComponents(mSurroundings.registry),
      mBoxes([this](const String& text, Long style, const String* title) { return mWatch.OnBox(text, style, title); }) {
  if (play::CallList* calls = mSurroundings.calls) {
    calls->SetNormaliser([this](play::Json& line) { Normalise(line); });
    mJournal.SetCalls(calls);
    mTurns.emplace(*calls);
  }
  mWindows.PlacePointer({0, 0});
  mProblem = mClipboard.Fill(settings);
  if (mProblem.empty()) mProblem = CreateComponents(settings);
  mWorld.SetUseObserver(&mWatch);
}

HostSession::~HostSession() {
  mJournal.Stop();
  Unload();
  if (mSurroundings.calls) mSurroundings.calls->SetNormaliser(nullptr);
}

std::string HostSession::CreateComponents(const play::SceneSettings& settings) {
  for (const auto& [name, value] : settings.initSettings) {
    const String key = Concat({kSettingsKey, u"\\Init"});
    if (!mSurroundings.registry.Put(Hive::kUser, key, name, value)) return "the user's settings can't be written";
  }
  return mComponents.Register(wordsim::Product::ComponentNames(),
                              [this](const String& progId) { return CreateComponent(progId); });
}

Object HostSession::CreateComponent(const String& progId) {
  Object made;
  try {
    made = mWorld.CreateComponent(progId);
  } catch (const Error&) {
  }
  mWatch.OnCreate(progId, !made.IsNothing());
  return made;
}

namespace {

bool IsPicture(IDispatch& object) {
  win32::ComRef<IUnknown> picture;
  return SUCCEEDED(object.QueryInterface(IID_IPicture, picture.PutVoid()));
}

}  // namespace

// Of the library's own objects, all have a class that they tell but the dictionaries that it fills.
std::string HostSession::NameOf(const Object& object) {
  const std::string name = wordsim::JournalNameOf(object);
  if (!name.empty() || object.IsNothing()) return name;
  win32::ComRef<IDispatch> face;
  *face.Put() = win32::Unwrap(object);
  if (IsPicture(*face.get())) return "picture";
  const std::string own = ClassNameOf(*face.get());
  return own.empty() ? "Dictionary" : own;
}

// The product's folder is called in every world as it is on the desk.
std::string HostSession::TextInJournal(std::string text) const {
  const std::string own = ToUtf8(mAdFolder.Path().View());
  if (text.starts_with(own)) text.replace(0, own.size(), ToUtf8(wordsim::Settings().commonAppPath.View()));
  return text;
}

// The one object of the library's that the store is given.
Object HostSession::AdCallback() { return mWorld.TheProduct().AdListener(); }

std::string HostSession::Start() {
  if (!mProblem.empty()) return mProblem;
  return mSurroundings.library.Create(mMain2);
}

void HostSession::Unload() {
  mMain2 = nullptr;
  mSurroundings.library.Unload();
}

void HostSession::Schedule(std::int64_t milliseconds, std::function<void()> work) {
  mClock.After(milliseconds, [this, work = std::move(work)] { InsideWord(work); });
}

// Nothing can be thrown through the library, nor through the system.
void HostSession::InsideWord(const std::function<void()>& work) {
  try {
    work();
  } catch (const play::SceneError& error) {
    mSurroundings.leaveWrong(error);
  }
}

std::string HostSession::Unsupported(play::Verb verb) const {
  switch (verb) {
    case play::Verb::kDpi:
      return "the screen has its own resolution";
    case play::Verb::kNow:
      return "the clock is the system's";
    case play::Verb::kFailWindow:
      return "the system's services don't fail to order";
    case play::Verb::kState:
      return "a DLL's variables can't be seen from outside";
    default:
      return "";
  }
}

bool HostSession::Hears(std::string_view kind) const {
  return kind == "object" || kind == "create" || kind == "box" || kind == "result";
}

void HostSession::Opened(wordsim::Document& document) {
  for (const auto& face : mFaces) {
    if (face->document.get() == &document) return;
  }
  mFaces.push_back(std::make_unique<DocumentFace>(document));
}

String HostSession::IdentityOf(wordsim::Document& document) {
  Opened(document);
  for (const auto& face : mFaces) {
    if (face->document.get() == &document) return DecimalText(face->number);
  }
  return {};
}

// Wherever a document's identity stands, the one that it has on every desk takes its place.
void HostSession::Normalise(play::Json& value) const {
  if (value.is_structured()) {
    for (auto& element : value) Normalise(element);
    return;
  }
  for (const auto& face : mFaces) {
    if (value.is_string() && value.get<std::string>() == std::to_string(face->number)) {
      value = ToUtf8(face->document->IdentityText().View());
      return;
    }
    if (value.is_number_integer() && value.get<std::int64_t>() == face->number) {
      value = face->document->Identity();
      return;
    }
  }
}

std::optional<std::uint32_t> HostSession::BarPixel(Long x, Long y) {
  const WindowPixels read = ReadWindow(mWorld.ActiveBarWindow());
  if (read.pixels.empty() || x < 0 || y < 0 || x >= read.width || y >= read.height) return std::nullopt;
  return read.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(read.width) + static_cast<std::size_t>(x)];
}

namespace {

std::string WritePicture(Long hwnd, const std::string& path) {
  const WindowPixels read = ReadWindow(hwnd);
  if (read.pixels.empty()) return "the window can't be read; take the picture where it has a size";
  if (play::WritePngFile(path, read.width, read.height, read.pixels)) return "";
  return "can't write the picture " + path + "; name a folder that can be written with --out";
}

}  // namespace

std::string HostSession::WriteBarPicture(const std::string& path) {
  return WritePicture(mWorld.ActiveBarWindow(), path);
}

std::string HostSession::WriteDeskPicture(const std::string& path) {
  return WritePicture(mWorld.ActiveTopWindow(), path);
}

}  // namespace strandline::wordhost
