#pragma once

// Pictures from numbered images of type "CUSTOM": GIF, JPEG or BMP, told by their content, of the library's own or of a
// loaded module.

#include "foundation/procedure.h"

namespace strandline {

// Told of every load: the number, the module (0: the library's own), and whether a picture came of it.
class PictureObserver {
 public:
  virtual void OnPicture(Integer index, Long hModule, Boolean ok) = 0;

 protected:
  ~PictureObserver() = default;
};

namespace LoadImageFromResource {

inline PictureObserver* observer = nullptr;

// Any failure yields Nothing and no error.
Picture LoadResGifJpgBmp(Integer index, Long hModule);
// Leaves bArr as it was when the resource isn't there.
void LoadResDataFromModule(Long hModule, Integer index, Array<Byte>& bArr);

}  // namespace LoadImageFromResource

}  // namespace strandline
