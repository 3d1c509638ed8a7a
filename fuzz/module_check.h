#pragma once

// Any bytes as a module: what must hold of the reading, and of the modules service with what was read.

#include <algorithm>
#include <memory>
#include <span>
#include <string>

#include "platform/desk/desk_modules.h"
#include "platform/desk/resource_module.h"

namespace strandline::modulecheck {

inline bool SameBytes(std::span<const Byte> a, std::span<const Byte> b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

inline bool Same(const desk::ModuleImage& a, const desk::ModuleImage& b) {
  if (a.strings != b.strings || a.All().size() != b.All().size()) return false;
  for (const auto& [type, resources] : a.All()) {
    if (b.OfType(type).size() != resources.size()) return false;
    for (const auto& [id, bytes] : resources) {
      const auto* const other = b.Find(id, type);
      if (!other || !SameBytes(bytes, *other)) return false;
    }
  }
  return true;
}

// Of a sound module each resource takes 48 bytes in tables, and each character two.
inline std::string WrongWithImage(const desk::ModuleImage& image, std::size_t fileSize) {
  std::size_t resources = 0;
  for (const auto& [type, all] : image.All()) {
    if (type.IsEmpty() || all.empty()) return "a type without a name or without resources";
    resources += all.size();
    if (all.begin()->first < 0 || all.rbegin()->first > 0xFFFF) return "a resource has a number beyond 65535";
    for (const auto& [id, bytes] : all) {
      if (bytes.size() > fileSize) return "a resource is longer than the file";
    }
  }
  if (resources * 48 > fileSize) return "there are more resources than the file has room for";
  std::size_t characters = 0;
  for (const auto& [id, text] : image.strings) {
    if (id < 0 || id > 0xFFFF) return "a text has a number beyond 65535";
    characters += text.View().size();
  }
  return characters * 2 > fileSize ? "there is more text than the file has room for" : "";
}

// The way of a loader, over the first few resources; where the system's handles are used wrongly, there is a record.
inline std::string WrongWithService(std::span<const Byte> file, const desk::ModuleImage& image) {
  const auto misuses = std::make_shared<desk::MisuseLog>();
  desk::DeskModules modules({}, misuses);
  if (!modules.SetModuleFile(u"any.dll", file)) return "it was read, and can't be set";
  const Long module = modules.LoadLibraryA(u"any.dll");
  int tried = 0;
  for (const auto& [type, all] : image.All()) {
    for (const auto& [id, bytes] : all) {
      if (++tried > 32) break;
      const Long resource = modules.FindResourceA(module, id, type);
      const auto size = static_cast<std::size_t>(modules.SizeofResource(module, resource));
      const Byte* const data = modules.LockResource(modules.LoadResource(module, resource));
      if (!data || !SameBytes({data, size}, bytes)) return "the service gives other bytes";
    }
  }
  for (const auto& [id, text] : image.strings) {
    if (modules.LoadStringA(module, id, 512).Length() != std::min(text.Length(), 511))
      return "a text is of another length";
  }
  if (modules.FreeLibrary(module) != 1 || modules.LiveModules() != 0) return "it can't be freed";
  return misuses->All().empty() ? "" : misuses->All().front().what;
}

// What is wrong; empty when nothing is.
inline std::string Wrong(std::span<const Byte> file) {
  const auto image = desk::ReadResourceModule(file);
  const auto again = desk::ReadResourceModule(file);
  if (image.has_value() != again.has_value()) return "read twice, it is a module once";
  if (!image) return "";
  if (!Same(*image, *again)) return "read twice, it is another module";
  const std::string wrong = WrongWithImage(*image, file.size());
  return wrong.empty() ? WrongWithService(file, *image) : wrong;
}

}  // namespace strandline::modulecheck
