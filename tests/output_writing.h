#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <platen/base/output_file.h>

#include "tests/support/temporary_file.h"

namespace platen::test {

/// A folder of its own for outputs.
class Output : public testing::Test {
  protected:
    Output() { std::filesystem::create_directory(m_folder); }
    ~Output() override { std::filesystem::remove_all(m_folder); }

    [[nodiscard]] std::string At(const std::string& name) const {
        return (m_folder / name).generic_string();
    }
    void Put(const std::string& name, const std::string& bytes) const {
        std::ofstream(At(name), std::ios::binary) << bytes;
    }
    [[nodiscard]] std::string Contents(const std::string& name) const {
        return FileContents(At(name));
    }
    /// In their order.
    [[nodiscard]] std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
            names.push_back(entry.path().filename().string());
        }
        std::ranges::sort(names);
        return names;
    }
    /// Writes a file whole: the notes of what was lost, or why it failed.
    [[nodiscard]] std::string Save(const std::string& name, const std::string& bytes,
                                   bool insists = false) const {
        OutputFile output;
        if (!output.Create(At(name).c_str(), insists) ||
            !output.Write(bytes.data(), bytes.size()) || !output.Commit()) {
            return output.Why().reason;
        }
        std::string notes;
        for (const char* note : output.Notes()) {
            notes += note == nullptr ? "" : std::string(note) + "\n";
        }
        return notes;
    }

  private:
    std::filesystem::path m_folder = NewTemporaryPath();
};

}  // namespace platen::test
