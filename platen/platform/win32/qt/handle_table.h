#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace platen::win32 {

/// The records behind one kind of handle. A handle is a number that is never given twice, so that
/// one whose record is gone is noticed.
template <class Handle, class Record>
class HandleTable {
  public:
    Handle Add(std::unique_ptr<Record> record) {
        // Beyond what may stand for an identifier, and clear of its low bits as addresses are.
        m_last += 8;
        const auto handle = reinterpret_cast<Handle>(m_last);
        m_records[handle] = std::move(record);
        return handle;
    }
    [[nodiscard]] Record* Find(Handle handle) const {
        const auto found = m_records.find(handle);
        return found == m_records.end() ? nullptr : found->second.get();
    }
    std::unique_ptr<Record> Take(Handle handle) {
        auto node = m_records.extract(handle);
        return node.empty() ? nullptr : std::move(node.mapped());
    }

  private:
    std::uintptr_t m_last = 0x1'0000;
    std::unordered_map<Handle, std::unique_ptr<Record>> m_records;
};

}  // namespace platen::win32
