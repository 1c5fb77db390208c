#pragma once

// ODBC's headers off Windows beside ours, before or after: they have a HWND, a WCHAR and texts of it of their
// own, and BOOL as a macro.

#define HWND OdbcWindow
#define WCHAR OdbcChar
#define LPWSTR OdbcString
#define LPCWSTR OdbcConstString
#include <sql.h>
#include <sqlext.h>
#undef BOOL
#undef HWND
#undef WCHAR
#undef LPWSTR
#undef LPCWSTR
