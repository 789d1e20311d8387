// SchemeUser: a report with a scheme dialog, and the person before it.
//
//     SchemeUser user("Rpt10503");
//     user.Filter([](Person& person) { person.Text("txtItem(0)", "01"); });   // and confirms
//     EXPECT_EQ(user.FilterValue("BCustNumber"), Value("01"));
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>

#include "support/person.h"

namespace qor::test {

class SchemeUser {
 public:
    using Play = std::function<void(Person&)>;
    using Entries = std::initializer_list<std::pair<std::string_view, Value>>;

    explicit SchemeUser(std::string_view reportClass, std::int32_t appType = 2)
        : SchemeUser(std::make_shared<ReportHost>(), reportClass) {
        host.platform.Bag().Put("AppType", appType);
    }
    /// A further report of a host.
    SchemeUser(std::shared_ptr<ReportHost> shared, std::string_view reportClass)
        : shared_(std::move(shared)), host(*shared_), report(host.Create(reportClass)) {}
    SchemeUser Another(std::string_view reportClass) const { return {shared_, reportClass}; }

    /// Shows the dialog, plays the person and confirms.
    void Filter(const Play& play = [](Person&) {}) {
        Show([&](Person& person) {
            play(person);
            person.schemeFrame().Confirm();
        });
    }
    /// Shows the dialog and plays the person; a dialog that is left open is cancelled.
    void Show(const Play& play) {
        host.InDialog([&](Form& form) {
            Person person(form);
            play(person);
        });
        report->Call("ShowFilter");
        host.InDialog([](Form&) {});
    }
    /// Keeps a scheme, as its number's last used one.
    void Keep(std::int32_t rptID, Entries entries) {
        SavedScheme scheme;
        for (const auto& [key, value] : entries) {
            scheme.push_back({std::string(key), value});
        }
        host.schemes.Save(rptID, "kept", scheme);
    }
    void SetFilter(Entries entries) {
        const auto filter = MakeRef<OrderedDictionary>();
        for (const auto& [key, value] : entries) {
            filter->Put(key, value);
        }
        report->Put("Filter", filter);
    }

    Value FilterValue(std::string_view key) { return Entry(*report, "Filter", key); }
    Value ResultValue(std::string_view key) { return Entry(*report, "Result", key); }
    std::string FilterKeys() { return Keys(report->Get("Filter")); }

 private:
    std::shared_ptr<ReportHost> shared_;

 public:
    ReportHost& host;
    Ref<Object> report;
};

}  // namespace qor::test
