#pragma once

// The only include of the system's header. Its macros would rename operations of the system's interfaces.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#include <winsock2.h>  // before windows.h

#undef GetComputerName
#undef GetPrivateProfileString
#undef GetWindowsDirectory
#undef RegCreateKeyEx
#undef RegOpenKeyEx
#undef RegQueryValueEx
#undef RegSetValueEx
#undef Yield
