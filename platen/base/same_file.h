#pragma once

/// Whether `name` leads to the file that is open as `file`, under whatever name or link. False when
/// either cannot be asked.
bool IsSameFile(void* file, const char* name);
