#pragma once

// The system's clipboard as an object that may hold it open. What it is for: a button's face goes through the
// clipboard, and the user's Rich Text is saved before that and put back after it. A clipboard that another program
// holds isn't an error: it didn't open, and the members that need it open raise kNotOpen into their tail.
//
// Format ids are the system's. Callers need no registered ones: kRichText and kHtml stand for them. Each member that
// deals in data replaces them, in the caller's variable.

#include "foundation/procedure.h"

namespace strandline {

class cCustomClipboard final : public ClassObject {
 public:
  static constexpr Long kHtml = 12345;
  static constexpr Long kRichText = 12346;

  // The error of a member that wants the clipboard open.
  static constexpr Long kNotOpen = static_cast<Long>(0x80040622);

  cCustomClipboard() {
    AddRef();  // a running procedure holds its object, and nobody else does yet
    Class_Initialize();
    Unhold();
  }

  // The number of the format of that name, the same for every program; 0 when it failed.
  Long AddFormat(const String& sName);
  // How many formats are on the clipboard now.
  Integer FormatCount();

  // Looks at what is on the clipboard, which it opens and closes; how many formats. The members with Current in their
  // names, and FormatIDForName, tell of the last look; indexes are from 1, and another one gives 0 or no name.
  Long GetCurrentFormats(Long hwndOwner);
  Long GetCurrentFormatID(Long lIndex);
  String GetCurrentFormatName(Long lIndex);
  Boolean HasCurrentFormat(Long lFormatId);

  // What people call a format; empty for one that nobody has named.
  String FormatName(Long lFormatId);
  // These two look anew. The id is 0 when nothing of that name, letters compared with case, is on the clipboard.
  Long FormatIDForName(Long hwndOwner, const String& sName);
  Boolean IsDataAvailableForFormatName(Long hwndOwner, const String& sFormatName);
  // Needs no opening.
  Boolean IsDataAvailableForFormat(Long& lFormatId);
  Boolean IsDataAvailableForFormat(const Long& lFormatId) {
    Long constant = lFormatId;
    return IsDataAvailableForFormat(constant);
  }

  // The bytes from index 0. False, and none, when there aren't any.
  Boolean GetBinaryData(Long& lFormatId, Array<Byte>& bData);
  // The clipboard's own memory, to be read only; 0 when there is none in that format.
  Long GetClipboardMemoryHandle(Long& lFormatId);
  Boolean SetBinaryData(Long& lFormatId, const Array<Byte>& bData);
  // From here on the memory is the clipboard's; when it failed, still the caller's.
  Boolean SetClipboardMemoryHandle(Long& lFormatId, Long hMem);

  // Plain and Unicode text (1, 13) are read through the run time's own clipboard object, which wants the clipboard
  // closed: it is closed for that, and open afterwards. Any other format is read as bytes, and characters that stand
  // there in UTF-8 come back as one. False, and the text as it was, when there are no bytes.
  Boolean GetTextData(String& sTextOut, Long& lFormatId);
  Boolean GetTextData(String& sTextOut, const Long& lFormatId) {
    Long constant = lFormatId;
    return GetTextData(sTextOut, constant);
  }
  // In the default code page, ended by a NUL. An empty text isn't put there: False.
  Boolean SetTextData(Long& lFormatId, const String& sText);
  Boolean SetTextData(const Long& lFormatId, const String& sText) {
    Long constant = lFormatId;
    return SetTextData(constant, sText);
  }

  // The paths of a list of files, from index 1. False, and none, when there is no such list.
  Boolean GetFileList(Array<String>& sFiles, Long& iFileCount);
  // Paths are taken up to a NUL, empty ones left out. False when none remains.
  Boolean SetFileList(const Array<String>& sFiles);

  void ClearClipboard();
  // Closes what this object holds open; with force, whatever this thread does.
  void ClipboardClose(Boolean forceClose);
  // True, or Empty when it can't be opened. With force, one that this thread has open is let go first.
  Variant ClipboardOpen(Long hwndOwner, Boolean forceOpen);

  void ReportVariables(Reporter& to) const override;

 private:
  void Class_Initialize();
  void Terminated() override;

  void pbNotReady();
  void setlFormatId(Long& lFormatId);

  Array<Long> m_lId;      // from 1
  Array<String> m_sName;  // likewise
  Long m_iCount = 0;
  Boolean m_bClipboardIsOpen = false;  // by this object
  Long m_hWnd = 0;                     // the owner while it is open
  Long m_RichTextId = 0;
  Long m_HTMLId = 0;
};

}  // namespace strandline
