#include "windows/enumerator.h"

#include "platform/dictionary.h"
#include "platform/vector.h"
#include "windows/list_enumerator.h"

namespace qor::windows {

namespace {

VARIANT HandOut(const Value& value) { return ToVariant(value).Detach(); }

using Enumerator = ListEnumerator<IEnumVARIANT, VARIANT, Value, HandOut>;

}  // namespace

ComPtr<IUnknown> MakeEnumerator(Object& object) {
    std::vector<Value> items;
    if (auto* list = dynamic_cast<Vector*>(&object)) {
        for (std::int32_t i = 1; i <= list->Count(); ++i) {
            items.push_back(list->Item(i));
        }
    } else if (auto* dictionary = dynamic_cast<Dictionary*>(&object)) {
        for (std::size_t i = 0; i < dictionary->Count(); ++i) {
            items.push_back(dictionary->KeyAt(i));
        }
    } else {
        return {};
    }
    ComPtr<IUnknown> enumerator;
    enumerator.Attach(new Enumerator(std::move(items)));
    return enumerator;
}

}  // namespace qor::windows
