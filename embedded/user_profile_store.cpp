#include "embedded/user_profile_store.h"

#include "embedded/sqlite.h"
#include "frames/durable_file.h"
#include "frames/value_json.h"

namespace qor {

namespace {

constexpr std::chrono::seconds kLongestWait{5};

std::string SectionName(const ProfileKey& key) { return key.product + "/" + key.section; }

/// The object under a key, an empty one where there is none. Raises an error for anything else.
OrderedJson ObjectUnder(const OrderedJson& whole, const std::string& key, const std::filesystem::path& file) {
    const auto found = whole.find(key);
    if (found == whole.end()) return OrderedJson::object();
    if (!found->is_object()) RaiseAccountSetError("用户配置文件已损坏：" + file.string());
    return *found;
}

OrderedJson ReadProfiles(const std::filesystem::path& file) {
    const auto content = ReadWholeFile(file);
    if (!content) return OrderedJson::object();
    OrderedJson profiles = OrderedJson::parse(*content, nullptr, false);
    if (!profiles.is_object()) RaiseAccountSetError("用户配置文件已损坏：" + file.string());
    return profiles;
}

}  // namespace

ProfileSection FileProfiles::Load(const ProfileKey& key) {
    const OrderedJson user = ObjectUnder(ReadProfiles(file_), std::to_string(key.userId), file_);
    const OrderedJson values = ObjectUnder(user, SectionName(key), file_);
    ProfileSection section;
    for (const auto& [name, value] : values.items()) {
        section.emplace_back(name, PlainValueFromJson(value));
    }
    return section;
}

void FileProfiles::Save(const ProfileKey& key, const ProfileSection& section) {
    const FileLock lock(file_.string() + ".lock", kLongestWait);
    OrderedJson profiles = ReadProfiles(file_);
    OrderedJson written = OrderedJson::object();
    for (const auto& [name, value] : section) {
        written[name] = PlainValueToJson(value);
    }
    OrderedJson user = ObjectUnder(profiles, std::to_string(key.userId), file_);
    user[SectionName(key)] = std::move(written);
    profiles[std::to_string(key.userId)] = std::move(user);
    ReplaceFile(file_, profiles.dump(2) + "\n");
}

}  // namespace qor
