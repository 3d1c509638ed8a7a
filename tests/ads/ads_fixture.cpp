#include "tests/ads/ads_fixture.h"

#include <cmath>

#include "drawing/ToolbarUtilities.h"

namespace strandline {

namespace {

void AddNumber(std::vector<Byte>& bytes, std::uint32_t number, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<Byte>(number >> (8 * i)));
}

// A picture file of 24 bits a pixel, all of one colour.
std::vector<Byte> BmpOf(Long width, Long height, std::uint32_t color) {
  const auto stride = static_cast<std::uint32_t>((width * 3 + 3) / 4 * 4);
  const std::uint32_t size = stride * static_cast<std::uint32_t>(height);
  std::vector<Byte> bytes{'B', 'M'};
  for (const std::uint32_t number : {54 + size, 0u, 54u, 40u}) AddNumber(bytes, number, 4);
  AddNumber(bytes, static_cast<std::uint32_t>(width), 4);
  AddNumber(bytes, static_cast<std::uint32_t>(height), 4);
  AddNumber(bytes, 1, 2);
  AddNumber(bytes, 24, 2);
  for (const std::uint32_t number : {0u, size, 2835u, 2835u, 0u, 0u}) AddNumber(bytes, number, 4);
  for (Long y = 0; y < height; ++y) {
    for (Long x = 0; x < width; ++x) AddNumber(bytes, color, 3);
    bytes.resize(54 + stride * static_cast<std::uint32_t>(y + 1));
  }
  return bytes;
}

}  // namespace

String AdSettings(const String& filter, Long duration, const String& page) {
  return Concat({u"1/1/2000$12/31/2039$W1111111$-$", filter, u"$", DecimalText(duration), u"$", page});
}

void AdsTest::Begin(const wordsim::Settings& settings) {
  ToolbarTest::Begin(settings);
  world->desk.RunTime().SetStart(desk::MakeDate(2009, 3, 2, 9));
  desk::DeskComponents& components = world->desk.Components();
  components.Register(u"AlphaBlender.Main2", [this] {
    return Object(New<ScriptedObject>([this](Use, Name member, const Arguments& arguments) {
      if (member == Name("AlphaBlend")) Blend(arguments);
      return Variant();
    }));
  });
  components.Register(u"HTTP.Main2", [this] {
    return Object(New<ScriptedObject>([this](Use, Name, const Arguments& arguments) {
      mBrowsed += ToUtf8(arguments.positional[0].ToText()) + " ";
      return Variant();
    }));
  });
  components.Register(u"StrandlineDownload.Main2", [this] {
    worker.push_back("made");
    return Object(New<ScriptedObject>([this](Use, Name member, const Arguments& arguments) -> Variant {
      if (member == Name("CreateDSAVerify")) {
        return Object(New<ScriptedObject>([this](Use, Name, const Arguments& verified) { return Verify(verified); }));
      }
      worker.push_back(std::string(member.Text()));
      asked.clear();
      for (const Variant& argument : arguments.positional) asked.push_back(argument.Resolved());
      return {};
    }));
  });
}

void AdsTest::SetLibrary(const std::vector<LibraryAd>& ads, const String& first) {
  desk::ModuleImage image;
  image.strings[1] = first;
  Long id = 2;
  for (const LibraryAd& ad : ads) {
    if (ad.hasPicture) image.AddResource(id, u"CUSTOM", BmpOf(ad.width, ad.height, ad.color));
    if (ad.hasString) image.strings[id] = ad.settings;
    ++id;
  }
  world->desk.Modules().SetModule(LibraryPath(), std::move(image));
  highest = static_cast<Long>(ads.size());
  signature = Concat({u"signature ", DecimalText(++mLibraries)});
}

void AdsTest::RemoveLibrary() { world->desk.Modules().RemoveModule(LibraryPath()); }

void AdsTest::BeginWithStrip(const std::vector<LibraryAd>& ads) {
  Begin();
  SetLibrary(ads);
  Boolean startedFromIcon = false;
  world->main->HandleCreateDocument(startedFromIcon);
  world->Settle();
}

void AdsTest::ReportNews(Boolean aborted) { Factory().callbackToMe()->NewAdvertisementsEvent(aborted); }

void AdsTest::ChangeValue(const String& key, const String& value) {
  world->word.TheProduct().ChangeValue(wordsim::ValueLevel::kGlobal, key, value);
}

void AdsTest::Paint(Long width, Long height) { Factory().AfterPaint(world->Bar(), 3, 2, width, height); }

AdvertisementsFactory& AdsTest::Factory() {
  return dynamic_cast<AdvertisementsFactory&>(*ToolbarUtilities::variables.adFactory);
}

Advertisements& AdsTest::Panel(Long n) {
  const auto& item = Main2Access::Registry(world->TheMain2())->ItemAt(n);
  const auto& owner = dynamic_cast<const ClassObject&>(*item.ToObject().Target());
  const VariableSnapshot variables = VariableSnapshot::Of(owner);
  const auto& strip = dynamic_cast<const ClassObject&>(*variables[u"mButtons"].ToObject().Target());
  return dynamic_cast<Advertisements&>(*VariableSnapshot::Of(strip)[u"mAdvert"].ToObject().Target());
}

std::string AdsTest::Visible(Long n) {
  std::string text;
  const Array<Boolean> visible = PanelVariables(n)[u"mVisibleArray"].ToArray<Boolean>();
  for (const bool flag : visible.Elements()) text += flag ? '1' : '0';
  return text;
}

std::string AdsTest::PanelState(Long n) {
  const VariableSnapshot variables = PanelVariables(n);
  return std::to_string(variables.Number(u"mCurrentIndex")) + " " + std::to_string(variables.Number(u"mFadeTick")) +
         (variables.Flag(u"mCyclingAds") ? " on" : " off");
}

const desk::Surface& AdsTest::PanelPixels(Long n) { return world->SurfaceOf(PanelVariables(n).Number(u"mTargetHdc")); }

std::uint32_t AdsTest::PanelPixel(Long n) {
  const desk::Surface& surface = PanelPixels(n);
  return surface.width == 0 ? 0xFFFFFFFF : *surface.At(surface.width / 2, surface.height / 2);
}

std::string AdsTest::ListenMap() {
  std::string text;
  const Ref<Dictionary>& map = Inside::ListenKeys(Factory());
  for (Long i = 0; map && i < map->Count(); ++i) {
    text += ToUtf8(map->KeyAt(i).ToText()) + "=";
    const Array<Boolean> ads = map->ItemAt(i).ToArray<Boolean>();
    for (const bool flag : ads.Elements()) text += flag ? '1' : '0';
    text += " ";
  }
  return text;
}

Trace::Lines AdsTest::LinesOf(unsigned kinds, std::set<std::string> beginnings, const std::function<void()>& doing) {
  trace().Listen(kinds);
  trace().Only(std::move(beginnings));
  doing();
  Trace::Lines lines = trace().Take();
  trace().Listen(0);
  return lines;
}

Variant AdsTest::Verify(const Arguments& arguments) {
  trace().Note("verify " + ToUtf8(arguments.positional[0].ToText()));
  if (verifying) verifying();
  arguments.positional[1].Assign(signature);
  return highest;
}

std::vector<std::uint32_t>* AdsTest::PixelsOf(Long hdc) {
  const desk::Context* const context = world->desk.Objects().Find<desk::Context>(hdc);
  desk::Bitmap* const bitmap = context ? world->desk.Objects().Find<desk::Bitmap>(context->bitmap) : nullptr;
  return bitmap ? &bitmap->surface.pixels : nullptr;
}

void AdsTest::Blend(const Arguments& arguments) {
  if (blending) blending();
  const Double share = arguments.positional[5].ToDouble();
  const std::string percentage = std::to_string(std::lround(share * 100));
  blends.push_back(percentage);
  const std::vector<std::uint32_t>* const from = PixelsOf(arguments.positional[3].ToLong());
  const std::vector<std::uint32_t>* const to = PixelsOf(arguments.positional[4].ToLong());
  std::vector<std::uint32_t>* const target = PixelsOf(arguments.positional[0].ToLong());
  if (!from || !to || !target || from->size() != to->size() || from->size() != target->size()) {
    ADD_FAILURE() << "surfaces that can't be blended";
    return;
  }
  for (std::size_t i = 0; i < target->size(); ++i) {
    std::uint32_t mixed = 0;
    for (int shift = 0; shift < 24; shift += 8) {
      const Double a = (*from)[i] >> shift & 255;
      const Double b = (*to)[i] >> shift & 255;
      mixed |= static_cast<std::uint32_t>(std::lround(a + (b - a) * share)) << shift;
    }
    (*target)[i] = mixed;
  }
  if (written) written(arguments.positional[0], arguments.positional[5]);
}

}  // namespace strandline
