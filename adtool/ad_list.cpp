#include "adtool/ad_list.h"

#include <optional>
#include <string_view>
#include <utility>

#include "adtool/ad_settings.h"
#include "adtool/files.h"
#include "adtool/key_depth.h"
#include "adtool/list_table.h"
#include "adtool/refusal.h"
#include "adtool/toml_library.h"
#include "platform/desk/picture_decoder.h"

namespace strandline::adtool {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestList = std::size_t{32} << 20;
constexpr std::size_t kLongestPicture = std::size_t{64} << 20;
constexpr std::size_t kAllPictures = std::size_t{256} << 20;
constexpr std::int64_t kLongestDuration = 2147483647;
constexpr int kWidestPicture = 32767;  // pixels; the toolbar keeps sizes in 16 bits
// The toolbar counts ads in 16 bits, and numbers their pictures from one more.
constexpr std::size_t kMostAds = 32766;
constexpr std::string_view kAd = "[[ad]]";
constexpr std::string_view kBuiltin = "[builtin]";

// The toolbar reads both dates of every ad before anything else.
AdSettings ReadSettings(const ListTable& table) {
  AdSettings settings;
  const std::optional<Day> from = table.Date("from");
  if (!from) table.RefuseMissing("from", "the first day, such as from = 2009-03-01");
  const std::optional<Day> to = table.Date("to");
  if (!to) table.RefuseMissing("to", "the last day, such as to = 2009-12-31");
  if (*from > *to)
    table.Refuse("from", "from: the ad begins after its last day; from is the earlier date, to the later");
  settings.from = *from;
  settings.to = *to;
  settings.rule = table.Text("rule").value_or(settings.rule);
  const std::string ruleFault = RuleFault(settings.rule, *from, *to);
  if (!ruleFault.empty()) table.Refuse("rule", "rule " + Quoted(settings.rule) + ": " + ruleFault);
  settings.filter = table.Text("filter").value_or("");
  const std::string filterFault = FilterFault(settings.filter);
  if (!filterFault.empty()) table.Refuse("filter", "filter: " + filterFault);
  settings.duration = table.Whole("duration").value_or(settings.duration);
  if (settings.duration < 1 || settings.duration > kLongestDuration) {
    table.Refuse("duration", "duration: right is a number of milliseconds from 1 to " +
                                 std::to_string(kLongestDuration) + ", such as 8000");
  }
  settings.address = table.Text("address").value_or("");
  if (settings.address.empty())
    table.RefuseMissing("address", "what a click opens, such as address = \"offers/spring\"");
  return settings;
}

// The text of the library for it.
std::string ReadSettingsString(const ListTable& table) {
  std::string text = SettingsString(ReadSettings(table));
  const std::size_t length = BytesInCodePage(text);
  if (length > kLongestSettings) {
    table.Refuse({}, "the settings take " + std::to_string(length) + " bytes, and the toolbar reads " +
                         std::to_string(kLongestSettings) + "; shorten the filter or the address");
  }
  return text;
}

bool BeginsWith(std::span<const std::uint8_t> bytes, std::string_view start) {
  return bytes.size() >= start.size() && std::equal(start.begin(), start.end(), bytes.begin(),
                                                    [](char a, auto b) { return static_cast<std::uint8_t>(a) == b; });
}

// What is wrong with it as a picture of an ad; empty when the toolbar can show it.
std::string PictureFault(std::span<const std::uint8_t> bytes) {
  const bool isGif = BeginsWith(bytes, "GIF87a") || BeginsWith(bytes, "GIF89a");
  const bool isJpeg = BeginsWith(bytes, "\xFF\xD8\xFF");
  if (!isGif && !isJpeg && !BeginsWith(bytes, "BM")) {
    return "is by its content no GIF, JPEG or BMP; save it as one of these";
  }
  const std::optional<desk::DecodedImage> picture = desk::DecodePicture(bytes);
  if (!picture) {
    return std::string("can't be decoded, it is damaged or larger than 16 megapixels; save it again as a sound ") +
           (isGif    ? "GIF"
            : isJpeg ? "JPEG"
                     : "BMP");
  }
  if (picture->width > kWidestPicture || picture->height > kWidestPicture) {
    return "is more than " + std::to_string(kWidestPicture) + " pixels wide or high; make it smaller";
  }
  return {};
}

class ListReader {
 public:
  explicit ListReader(const std::string& path) : mPath(path), mFolder(fs::path(path).parent_path()) {}

  AdLibrary Read() {
    const toml::table root = Parse();
    const ListTable table(mPath, root, "the list");
    table.AllowOnly({"builtin", "ad"});
    mLibrary.content.strings[1] = ReadBuiltin(table, root);
    const toml::array& ads = Ads(table, root);
    for (const toml::node& node : ads) AddAd(*node.as_table());
    return std::move(mLibrary);
  }

 private:
  toml::table Parse() const {
    try {
      const std::vector<std::uint8_t> bytes = ReadWholeFile(mPath, kLongestList);
      const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
      if (const std::optional<int> line = LineOfTooDeepKey(text)) {
        throw Refusal(mPath + ":" + std::to_string(*line) + ": a key has more than " + std::to_string(kMostKeyParts) +
                      " parts with points between them; the keys of a list have none");
      }
      return toml::parse(text);
    } catch (const FileFailure& failure) {
      throw Refusal(mPath + ": can't read the list (" + failure.what() + "); name a text file that can be read");
    } catch (const toml::parse_error& error) {
      throw Refusal(mPath + ":" + std::to_string(error.source().begin.line) + ": " + std::string(error.description()) +
                    "; the list is a text in TOML");
    }
  }

  std::string ReadBuiltin(const ListTable& table, const toml::table& root) const {
    const toml::node* node = root.get("builtin");
    if (!node) return DefaultSettingsString();
    if (!node->is_table()) table.Refuse("builtin", "builtin: right is one table, begun by a line [builtin]");
    const ListTable builtin(mPath, *node->as_table(), kBuiltin);
    if (root.get("builtin")->as_table()->contains("picture")) {
      builtin.Refuse("picture", "picture: the picture of [builtin] is the toolbar's own; leave it out");
    }
    builtin.AllowOnly({"from", "to", "rule", "filter", "duration", "address"});
    return ReadSettingsString(builtin);
  }

  const toml::array& Ads(const ListTable& table, const toml::table& root) const {
    const toml::node* node = root.get("ad");
    const toml::array* ads = node ? node->as_array() : nullptr;
    if (!node || (ads && ads->empty())) {
      throw Refusal(mPath + ":1: the list has no ad, and a library holds at least one; begin each with a line [[ad]]");
    }
    if (!ads || !ads->is_homogeneous(toml::node_type::table)) {
      table.Refuse("ad", "ad: right are tables, each begun by a line [[ad]]");
    }
    if (ads->size() > kMostAds) {
      const ListTable first(mPath, *ads->get(kMostAds)->as_table(), kAd);
      first.Refuse({}, "this is one ad more than the toolbar can number, which is " + std::to_string(kMostAds) +
                           "; make a second list");
    }
    return *ads;
  }

  void AddAd(const toml::table& node) {
    const ListTable table(mPath, node, kAd);
    table.AllowOnly({"picture", "from", "to", "rule", "filter", "duration", "address"});
    std::vector<std::uint8_t> picture = ReadPicture(table);
    const int number = ++mLibrary.ads + 1;
    mLibrary.content.strings[number] = ReadSettingsString(table);
    mLibrary.content.pictures[number] = std::move(picture);
  }

  std::vector<std::uint8_t> ReadPicture(const ListTable& table) {
    const std::string name = table.AnyText("picture").value_or("");
    if (name.empty()) table.RefuseMissing("picture", "the name of its file, such as picture = \"spring.gif\"");
    if (name.find('\0') != std::string::npos) table.Refuse("picture", "picture: no file's name holds a NUL");
    const fs::path path = mFolder / name;
    std::vector<std::uint8_t> bytes;
    try {
      bytes = ReadWholeFile(path, kLongestPicture);
    } catch (const FileFailure& failure) {
      table.Refuse("picture", "can't read the picture " + Quoted(name) + " (" + failure.what() +
                                  "); its name is taken from the folder of the list");
    }
    const std::string fault = PictureFault(bytes);
    if (!fault.empty()) table.Refuse("picture", "the picture " + Quoted(name) + " " + fault);
    mBytesOfPictures += bytes.size();
    if (mBytesOfPictures > kAllPictures) {
      table.Refuse("picture", "the pictures up to " + Quoted(name) + " have more than " +
                                  std::to_string(kAllPictures >> 20) + " MB together; make them smaller");
    }
    mLibrary.pictures.push_back(path);
    return bytes;
  }

  const std::string mPath;
  const fs::path mFolder;
  AdLibrary mLibrary;
  std::size_t mBytesOfPictures = 0;
};

}  // namespace

AdLibrary ReadAdList(const std::string& path) { return ListReader(path).Read(); }

}  // namespace strandline::adtool
