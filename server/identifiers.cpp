// The identifiers of the public interfaces, as compiled from strandline.idl.

#include "platform/win32/windows_api.h"
//
#include "strandline_com.c"
