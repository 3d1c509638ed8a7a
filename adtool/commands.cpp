#include "adtool/commands.h"

#include <filesystem>
#include <span>
#include <vector>

#include "adtool/ad_list.h"
#include "adtool/files.h"
#include "adtool/refusal.h"
#include "adtool/signature.h"

namespace strandline::adtool {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestLibrary = std::size_t{512} << 20;
constexpr std::size_t kLongestKey = std::size_t{1} << 20;

std::vector<std::uint8_t> ReadLibrary(const std::string& path) {
  try {
    return ReadWholeFile(path, kLongestLibrary);
  } catch (const FileFailure& failure) {
    throw Refusal(path + ": can't read the library (" + failure.what() + "); name one that build has made");
  }
}

std::string ReadKey(const std::string& path) {
  try {
    const std::vector<std::uint8_t> bytes = ReadWholeFile(path, kLongestKey);
    return {bytes.begin(), bytes.end()};
  } catch (const FileFailure& failure) {
    throw Refusal(path + ": can't read the key (" + failure.what() + "); name a file in PEM");
  }
}

void Write(const std::string& path, std::span<const std::uint8_t> bytes) {
  try {
    ReplaceFile(path, bytes);
  } catch (const FileFailure& failure) {
    throw Refusal(path + ": can't write it (" + failure.what() + "); name a file that can be written");
  }
}

void RefuseOverwriting(const std::string& output, const fs::path& input, const char* what) {
  std::error_code ignored;
  if (fs::equivalent(output, input, ignored)) {
    throw Refusal(output + ": the library would overwrite the " + what + "; choose another name for it");
  }
}

std::string Count(int ads) { return std::to_string(ads) + (ads == 1 ? " ad" : " ads"); }

Outcome Build(const CommandLine& line) {
  const AdLibrary library = ReadAdList(line.input);
  RefuseOverwriting(line.output, line.input, "list");
  for (const fs::path& picture : library.pictures) RefuseOverwriting(line.output, picture, "picture");
  const std::vector<std::uint8_t> bytes = WriteModule(library.content);
  Write(line.output, bytes);
  return {0, line.output + ": " + Count(library.ads) + ", " + std::to_string(bytes.size()) + " bytes, not signed yet"};
}

Outcome Sign(const CommandLine& line) {
  const std::string& output = line.output.empty() ? line.input : line.output;
  const std::vector<std::uint8_t> file = ReadLibrary(line.input);
  const std::string key = ReadKey(line.key);
  RefuseOverwriting(output, line.key, "key");
  const int ads = HighestAdIndex(file);
  if (ads < 1) throw Refusal(line.input + ": it is no library with ads; sign one that build has made");
  std::vector<std::uint8_t> signedFile;
  try {
    signedFile = SignLibrary(file, key);
  } catch (const KeyFailure& failure) {
    throw Refusal(line.key + ": " + failure.what());
  } catch (const SignatureFailure& failure) {
    throw Refusal(line.input + ": " + failure.what());
  }
  Write(output, signedFile);
  return {0, output + ": " + Count(ads) + ", signed"};
}

Outcome Verify(const CommandLine& line) {
  const std::vector<std::uint8_t> file = ReadLibrary(line.input);
  const std::string key = ReadKey(line.key);
  const std::string fault = PublicKeyFault(key);
  if (!fault.empty()) throw Refusal(line.key + ": " + fault);
  const Verdict verdict = VerifyLibrary(file, key);
  if (!verdict.isGood) return {1, line.input + ": not good: " + verdict.why};
  if (verdict.highestAdIndex < 1) return {1, line.input + ": not good: the signature is, but it holds no ad"};
  return {0, line.input + ": good, " + Count(verdict.highestAdIndex)};
}

}  // namespace

Outcome RunCommand(const CommandLine& line) {
  switch (line.command) {
    case Command::kBuild:
      return Build(line);
    case Command::kSign:
      return Sign(line);
    case Command::kVerify:
      return Verify(line);
    case Command::kHelp:
      break;
  }
  return {0, std::string(HelpText())};
}

}  // namespace strandline::adtool
