#include <nlohmann/json.hpp>

#include "info.h"

namespace platen::tool {

using Json = nlohmann::ordered_json;

std::string InfoJson(const Inspection& file) {
    const char* format = file.Format();
    Json line = {{"file", file.Name()},
                 {"status", file.Status()},
                 {"format", format == nullptr ? Json(nullptr) : Json(format)},
                 {"size", file.Size()}};
    Json directories = Json::array();
    for (short dir = 0; dir < file.Directories(); ++dir) {
        directories.push_back({{"index", dir},
                               {"entries", file.Directory(dir).NumEntries},
                               {"class", file.ClassOf(dir)}});
    }
    line["directories"] = std::move(directories);
    for (std::size_t i = 0; i < kRoles.size(); ++i) {
        line["roles"][kRoles[i].name] = file.Chosen()[i];
    }
    return line.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace platen::tool
