#include <platen/base/memory.h>

HGLOBAL MEM_NewHandle(DWORD size, DWORD flags) {
    return GlobalAlloc(flags, size);
}

HGLOBAL MEM_ReNewHandle(HGLOBAL handle, DWORD size, DWORD flags) {
    return handle == nullptr ? nullptr : GlobalReAlloc(handle, size, flags);
}

HGLOBAL MEM_FreeHandle(HGLOBAL handle) {
    if (handle != nullptr) {
        GlobalFree(handle);
    }
    return nullptr;
}

void* MEM_LockHandle(HGLOBAL handle) {
    return handle == nullptr ? nullptr : GlobalLock(handle);
}

HGLOBAL MEM_UnlockHandle(HGLOBAL handle) {
    if (handle != nullptr) {
        GlobalUnlock(handle);
    }
    return nullptr;
}

DWORD MEM_LogSizeHandle(HGLOBAL handle) {
    return handle == nullptr ? 0 : static_cast<DWORD>(GlobalSize(handle));
}

void* MEM_NewPtr(DWORD size, DWORD flags) {
    return MEM_LockHandle(MEM_NewHandle(size, flags));
}

void* MEM_ReNewPtr(void* pointer, DWORD size, DWORD flags) {
    const HGLOBAL block = GlobalHandle(pointer);
    GlobalUnlock(block);
    return MEM_LockHandle(GlobalReAlloc(block, size, flags));
}

void* MEM_FreePtr(void* pointer) {
    if (pointer != nullptr) {
        const HGLOBAL block = GlobalHandle(pointer);
        GlobalUnlock(block);
        GlobalFree(block);
    }
    return nullptr;
}
