#pragma once
// The API version text a plug-in exports as MApiVersion. Included once per plug-in through
// MFnPlugin.h; other translation units define MNoVersionString to leave it out.

#include <maya/MTypes.h>

#ifndef MNoVersionString
#define MHOST_VERSION_TEXT2(v) #v
#define MHOST_VERSION_TEXT(v) MHOST_VERSION_TEXT2(v)
extern "C" {
__attribute__((visibility("default"))) char MApiVersion[] = MHOST_VERSION_TEXT(MAYA_API_VERSION);
}
#undef MHOST_VERSION_TEXT
#undef MHOST_VERSION_TEXT2
#endif
