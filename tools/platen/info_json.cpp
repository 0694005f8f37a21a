#include "info.h"
#include "shown_text.h"

namespace platen::tool {
namespace {

/// A member of an object, with the comma before all but the first.
void AppendMember(std::string& object, std::string_view key, std::string_view value) {
    object.append(object.ends_with('{') ? "\"" : ",\"").append(key).append("\":").append(value);
}

std::string Directories(const Inspection& file) {
    std::string list = "[";
    for (short dir = 0; dir < file.Directories(); ++dir) {
        std::string object = dir == 0 ? "{" : ",{";
        AppendMember(object, "index", std::to_string(dir));
        AppendMember(object, "entries", std::to_string(file.Entries(dir)));
        AppendMember(object, "class", std::string("\"") + file.ClassOf(dir) + "\"");
        list.append(object).append("}");
    }
    return list.append("]");
}

std::string Roles(const Inspection& file) {
    std::string object = "{";
    for (std::size_t i = 0; i < kRoles.size(); ++i) {
        AppendMember(object, kRoles[i].name, std::to_string(file.Chosen()[i]));
    }
    return object.append("}");
}

}  // namespace

std::string InfoJson(const Inspection& file, bool forTerminal) {
    const char* format = file.Format();
    std::string line = "{";
    AppendMember(line, "file", JsonText(file.Name(), forTerminal));
    AppendMember(line, "status", std::to_string(file.Status()));
    AppendMember(line, "format", format == nullptr ? "null" : JsonText(format, false));
    AppendMember(line, "size", std::to_string(file.Size()));
    AppendMember(line, "directories", Directories(file));
    AppendMember(line, "roles", Roles(file));
    return line.append("}\n");
}

}  // namespace platen::tool
