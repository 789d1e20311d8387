// Letting go of objects that hold each other: reference counts alone would keep them for ever.
#include <algorithm>
#include <unordered_set>
#include <vector>

#include "library.h"
#include "platform/dictionary.h"
#include "platform/vector.h"
#include "viewer/object_names.h"

namespace qor::viewer {

namespace {

/// Empties every dictionary and every list that can be reached.
class Emptier {
 public:
    void Visit(const Value& value) {
        if (!value.IsObject() || value.IsNothing()) return;
        const Ref<Object> object(value.object());
        if (!seen_.insert(object.get()).second) return;
        kept_.push_back(object);
        if (auto* report = dynamic_cast<Report*>(object.get())) {
            VisitReport(*report);
        } else if (auto* dictionary = dynamic_cast<OrderedDictionary*>(object.get())) {
            while (dictionary->Count() > 0) {
                const std::string key = dictionary->KeyAt(dictionary->Count() - 1);
                const Value held = dictionary->Get(key);
                dictionary->Remove(key);
                Visit(held);
            }
        } else if (auto* list = dynamic_cast<ArrayVector*>(object.get())) {
            std::vector<Value> held;
            for (std::int32_t i = 1; i <= list->Count(); ++i) {
                held.push_back(list->Item(i));
            }
            list->Clear();
            std::ranges::for_each(held, [this](const Value& each) { Visit(each); });
        }
    }

 private:
    void VisitReport(Report& report) {
        for (const Ref<Dictionary>& dictionary : {report.Filter(), report.Result(), report.Property()}) {
            Visit(dictionary);
        }
        Visit(report.Header());
        Visit(report.Title());
    }

    std::unordered_set<Object*> seen_;
    std::vector<Ref<Object>> kept_;  // until all have been seen
};

}  // namespace

void ObjectNames::DropAll() {
    Emptier emptier;
    for (const auto& [name, value] : kept_) {
        emptier.Visit(value);
    }
    kept_.clear();
}

}  // namespace qor::viewer
