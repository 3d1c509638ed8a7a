#include "foundation/cCustomClipboard.h"

#include <algorithm>
#include <iterator>

#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline {

namespace {

using namespace clipboardformat;

constexpr ModuleInfo kModuleInfo{u"cCustomClipboard", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr const char16_t* kStandardNames[] = {u"Text",
                                              u"Bitmap Picture",
                                              u"Meta-File Picture",
                                              u"Microsoft Symbolic Link (SYLK) data.",
                                              u"Software Arts' Data Interchange information.",
                                              u"Tagged Image File Format (TIFF) Picture",
                                              u"Text (OEM)",
                                              u"DIB Bitmap Picture",
                                              u"Colour Palette",
                                              u"Pen Data",
                                              u"RIFF Audio data",
                                              u"Wave File",
                                              u"Text (Unicode)",
                                              u"Enhanced Meta-File Picture",
                                              u"File List",
                                              u"Text Locale Identifier",
                                              u""};
static_assert(std::size(kStandardNames) == kLastStandard);

constexpr Long kNameBuffer = 255;  // characters, with the NUL

template <class T>
void Append(Array<T>& values, const T& value) {
  const Long count = values.IsSized() ? values.Upper() : 0;
  Array<T> grown(1, count + 1);
  std::copy(values.Elements().begin(), values.Elements().end(), grown.Data());
  grown(count + 1) = value;
  values = std::move(grown);
}

}  // namespace

void cCustomClipboard::Class_Initialize() {
  METHOD(void, u"Class_Initialize");
  STEP(m_RichTextId = AddFormat(u"Rich Text Format"));
  STEP(m_HTMLId = AddFormat(u"HTML Format"));
}

void cCustomClipboard::Terminated() {
  METHOD(void, u"Class_Terminate");
  ClipboardClose(false);
}

// No step holds the error, so that it goes to the caller's tail.
void cCustomClipboard::pbNotReady() {
  METHOD(void, u"pbNotReady");
  if (m_bClipboardIsOpen) return;
  Raise(kNotOpen, u"Attempt to access the clipboard when clipboard not Open.",
        Concat({ProgramName(), u".cCustomClipboard"}));
}

void cCustomClipboard::setlFormatId(Long& lFormatId) {
  METHOD(void, u"setlFormatId", lFormatId);
  if (lFormatId == kRichText) {
    lFormatId = m_RichTextId;
  } else if (lFormatId == kHtml) {
    lFormatId = m_HTMLId;
  }
}

// ---- Formats.

Long cCustomClipboard::AddFormat(const String& sName) {
  METHOD(Long, u"AddFormat", sName);
  Long lId = 0;
  REPORTS(lId);
  STEP(lId = platform::Clipboard().RegisterClipboardFormatA(Concat({sName, TextView(u"\0", 1)})));
  // The first of the numbers is the system's own.
  if (lId > kFirstNamed) here.result = lId;
  return here.Leave();
}

Integer cCustomClipboard::FormatCount() {
  METHOD(Integer, u"FormatCount");
  STEP(here.result = ToInteger(platform::Clipboard().CountClipboardFormats()));
  return here.Leave();
}

Long cCustomClipboard::GetCurrentFormats(Long hwndOwner) {
  METHOD(Long, u"GetCurrentFormats", hwndOwner);
  Long lFormatId = 0;
  REPORTS(lFormatId);
  m_lId.Erase();
  m_sName.Erase();
  m_iCount = 0;
  if (ClipboardOpen(hwndOwner, false).IsEmpty()) return here.result = 0;
  for (;;) {
    STEP(lFormatId = platform::Clipboard().EnumClipboardFormats(lFormatId));
    if (lFormatId == 0) break;
    STEP(Append(m_lId, lFormatId));
    STEP(Append(m_sName, FormatName(lFormatId)));
    ++m_iCount;
  }
  ClipboardClose(false);
  return here.result = m_iCount;
}

Long cCustomClipboard::GetCurrentFormatID(Long lIndex) {
  METHOD(Long, u"GetCurrentFormatID", lIndex);
  STEP(here.result = m_lId(lIndex));
  return here.Leave();
}

String cCustomClipboard::GetCurrentFormatName(Long lIndex) {
  METHOD(String, u"GetCurrentFormatName", lIndex);
  STEP(here.result = m_sName(lIndex));
  return here.Leave();
}

Boolean cCustomClipboard::HasCurrentFormat(Long lFormatId) {
  METHOD(Boolean, u"HasCurrentFormat", lFormatId);
  Long i = 0;
  REPORTS(i);
  for (i = 1; i <= m_iCount; ++i) {
    CONDITION(isIt, m_lId(i) == lFormatId);
    if (isIt) return here.result = true;
  }
  return here.Leave();
}

String cCustomClipboard::FormatName(Long lFormatId) {
  METHOD(String, u"FormatName", lFormatId);
  if (lFormatId >= 1 && lFormatId <= kLastStandard) {
    STEP(here.result = kStandardNames[lFormatId - 1]);
    return here.Leave();
  }
  STEP(here.result = platform::Clipboard().GetClipboardFormatNameA(lFormatId, kNameBuffer));
  return here.Leave();
}

Long cCustomClipboard::FormatIDForName(Long hwndOwner, const String& sName) {
  METHOD(Long, u"FormatIDForName", hwndOwner, sName);
  Long i = 0;
  REPORTS(i);
  GetCurrentFormats(hwndOwner);
  for (i = 1; i <= m_iCount; ++i) {
    CONDITION(isIt, m_sName(i) == sName);
    if (!isIt) continue;
    STEP(here.result = m_lId(i));
    break;
  }
  return here.Leave();
}

Boolean cCustomClipboard::IsDataAvailableForFormatName(Long hwndOwner, const String& sFormatName) {
  METHOD(Boolean, u"IsDataAvailableForFormatName", hwndOwner, sFormatName);
  const Long lId = FormatIDForName(hwndOwner, sFormatName);
  REPORTS(lId);
  return here.result = lId != 0 && HasCurrentFormat(lId);
}

Boolean cCustomClipboard::IsDataAvailableForFormat(Long& lFormatId) {
  METHOD(Boolean, u"IsDataAvailableForFormat", lFormatId);
  setlFormatId(lFormatId);
  STEP(here.result = platform::Clipboard().IsClipboardFormatAvailable(lFormatId) != 0);
  return here.Leave();
}

// ---- Opening.

void cCustomClipboard::ClearClipboard() {
  METHOD(void, u"ClearClipboard");
  STEP(pbNotReady());
  STEP(platform::Clipboard().EmptyClipboard());
}

void cCustomClipboard::ClipboardClose(Boolean forceClose) {
  METHOD(void, u"ClipboardClose", forceClose);
  if (!forceClose && !m_bClipboardIsOpen) return here.Leave();
  STEP(platform::Clipboard().CloseClipboard());
  m_bClipboardIsOpen = false;
  m_hWnd = 0;
}

Variant cCustomClipboard::ClipboardOpen(Long hwndOwner, Boolean forceOpen) {
  METHOD(Variant, u"ClipboardOpen", hwndOwner, forceOpen);
  Long lResult = 0;
  REPORTS(lResult);
  if (forceOpen) ClipboardClose(true);
  STEP(lResult = platform::Clipboard().OpenClipboard(hwndOwner));
  if (lResult < 1) {
    m_hWnd = 0;
    m_bClipboardIsOpen = false;
  } else {
    m_hWnd = hwndOwner;
    m_bClipboardIsOpen = true;
    here.result = true;
  }
  return here.Leave();
}

void cCustomClipboard::ReportVariables(Reporter& to) const {
  Array<Variant> ids;
  if (m_lId.IsSized()) {
    ids.Size(m_lId.Lower(), m_lId.Upper());
    for (Long i = m_lId.Lower(); i <= m_lId.Upper(); ++i) ids(i) = m_lId(i);
  }
  to.List("m_lId, m_sName, m_iCount, m_bClipboardIsOpen, m_hWnd, m_RichTextId, m_HTMLId", ids, m_sName, m_iCount,
          m_bClipboardIsOpen, m_hWnd, m_RichTextId, m_HTMLId);
}

}  // namespace strandline
