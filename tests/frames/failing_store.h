// A store of schemes whose file cannot be used.
#pragma once

#include "frames/scheme_store.h"
#include "platform/error.h"

namespace qor::test {

class FailingStore final : public SchemeStore {
 public:
    std::vector<std::string> Names(std::int32_t) override { Fail(); }
    std::string LastUsed(std::int32_t) override { Fail(); }
    std::optional<SavedScheme> Find(std::int32_t, std::string_view) override { Fail(); }
    void Save(std::int32_t, std::string_view, const SavedScheme&) override { Fail(); }
    bool MarkUsed(std::int32_t, std::string_view) override { Fail(); }
    bool Remove(std::int32_t, std::string_view) override { Fail(); }

 private:
    [[noreturn]] static void Fail() { throw Error(75, "test", "方案文件坏了"); }
};

}  // namespace qor::test
