#include <platen/platform/afx/cmd_target.h>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static constexpr AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindEntry(UINT message, UINT code, UINT identifier) const {
    const AFX_MSGMAP* map = GetMessageMap();
    while (map != nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn != nullptr; ++entry) {
            if (entry->nMessage == message && entry->nCode == code && entry->nID == identifier) {
                return entry;
            }
        }
        map = map->pfnGetBaseMap == nullptr ? nullptr : map->pfnGetBaseMap();
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT identifier, int code) {
    const AFX_MSGMAP_ENTRY* entry = FindEntry(WM_COMMAND, static_cast<UINT>(code), identifier);
    if (entry == nullptr) {
        return FALSE;
    }
    entry->pfn(*this, 0, 0);
    return TRUE;
}
