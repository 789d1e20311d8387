// The named filter settings that users keep, by report number. A scheme is what a dialog wrote: keys with
// values, in order. The frames see a SchemeStore only; where it keeps things is its own affair.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/value.h"

namespace qor {

struct SchemeItem {
    std::string key;
    Value value;  // never an object
    friend bool operator==(const SchemeItem&, const SchemeItem&) = default;
};
using SavedScheme = std::vector<SchemeItem>;

/// Everything that is kept, as plain data.
class SchemeBook {
 public:
    struct Named {
        std::string name;
        SavedScheme scheme;
    };
    struct Page {
        std::string lastUsed;  // "" for none
        std::vector<Named> schemes;
    };

    std::vector<std::string> Names(std::int32_t rptID) const;
    std::string LastUsed(std::int32_t rptID) const;
    std::optional<SavedScheme> Find(std::int32_t rptID, std::string_view name) const;
    void Save(std::int32_t rptID, std::string_view name, const SavedScheme& scheme);
    bool MarkUsed(std::int32_t rptID, std::string_view name);
    bool Remove(std::int32_t rptID, std::string_view name);

    const std::map<std::int32_t, Page>& pages() const { return pages_; }
    Page& page(std::int32_t rptID) { return pages_[rptID]; }

 private:
    const Page* Find(std::int32_t rptID) const;

    std::map<std::int32_t, Page> pages_;
};

/// Every operation may raise an Error whose description is for the user.
class SchemeStore {
 public:
    virtual ~SchemeStore() = default;

    /// In the order of their first saving.
    virtual std::vector<std::string> Names(std::int32_t rptID) = 0;
    /// The scheme saved or loaded last; "" where there is none, or where it was removed since.
    virtual std::string LastUsed(std::int32_t rptID) = 0;
    virtual std::optional<SavedScheme> Find(std::int32_t rptID, std::string_view name) = 0;
    /// Replaces the scheme of that name, or adds it behind the others. Makes it the last used one.
    virtual void Save(std::int32_t rptID, std::string_view name, const SavedScheme& scheme) = 0;
    /// Makes it the last used one; answers whether it is there.
    virtual bool MarkUsed(std::int32_t rptID, std::string_view name) = 0;
    /// Answers whether it was there.
    virtual bool Remove(std::int32_t rptID, std::string_view name) = 0;
};

/// Keeps schemes as long as it lives itself, for conversations and tests.
class MemorySchemeStore final : public SchemeStore {
 public:
    std::vector<std::string> Names(std::int32_t rptID) override { return book_.Names(rptID); }
    std::string LastUsed(std::int32_t rptID) override { return book_.LastUsed(rptID); }
    std::optional<SavedScheme> Find(std::int32_t rptID, std::string_view name) override {
        return book_.Find(rptID, name);
    }
    void Save(std::int32_t rptID, std::string_view name, const SavedScheme& scheme) override {
        book_.Save(rptID, name, scheme);
    }
    bool MarkUsed(std::int32_t rptID, std::string_view name) override { return book_.MarkUsed(rptID, name); }
    bool Remove(std::int32_t rptID, std::string_view name) override { return book_.Remove(rptID, name); }

 private:
    SchemeBook book_;
};

}  // namespace qor
