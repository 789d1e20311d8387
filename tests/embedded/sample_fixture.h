// Sample firms for tests: each is made once in a test program, and a server on it is opened for each test.
#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <utility>

#include "embedded/middle_tier.h"
#include "embedded/sample.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"
#include "support/temp_folder.h"

namespace qor::test {

inline constexpr std::int64_t kFirmBills = 4000;

inline std::filesystem::path SampleFile(std::uint64_t seed = 1) {
    static const TempFolder folder;
    const std::filesystem::path file = folder / std::to_string(seed);
    if (!std::filesystem::exists(file)) MakeSample(file, {.bills = kFirmBills, .seed = seed});
    return file;
}

using FilterEntries = std::initializer_list<std::pair<std::string_view, Value>>;

inline Ref<OrderedDictionary> Filter(FilterEntries entries) {
    auto filter = MakeRef<OrderedDictionary>();
    for (const auto& [key, value] : entries) {
        filter->Put(key, value);
    }
    return filter;
}

/// Calls a member of a component with the session string and a filter by reference.
inline Ref<RecordSet> AskReport(MiddleTier& tier, std::string_view component, std::string_view member,
                                const Value& filter) {
    Value variable = filter;
    const Ref<Object> data = tier.Create(component);
    return As<RecordSet>(data->Call(member, tier.PropsString(), Argument::ByRef(variable)));
}

}  // namespace qor::test
