// The dictionary beside the hash map that one would write by hand: small as a column descriptor, middling
// as a filter, large as a lookup.
#include <benchmark/benchmark.h>

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/dictionary.h"

namespace qor::bench {
namespace {

std::vector<std::string> Keys(std::int64_t count) {
    std::vector<std::string> keys;
    for (std::int64_t i = 0; i < count; ++i)
        keys.push_back("FKeyNumber" + std::to_string(i));
    return keys;
}

struct Ours {
    OrderedDictionary dictionary;
    void Put(const std::string& key, Value value) { dictionary.Put(key, std::move(value)); }
    Value Get(const std::string& key) const { return dictionary.Get(key); }
};

struct ByHand {
    std::unordered_map<std::string, Value> map;
    void Put(const std::string& key, Value value) { map.insert_or_assign(key, std::move(value)); }
    Value Get(const std::string& key) const { return map.find(key)->second; }
};

template <class Store>
void DictionaryPut(benchmark::State& state) {
    const auto keys = Keys(state.range(0));
    for (auto _ : state) {
        Store store;
        std::int32_t number = 0;
        for (const std::string& key : keys)
            store.Put(key, ++number);
        benchmark::DoNotOptimize(store);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Store>
void DictionaryGet(benchmark::State& state) {
    const auto keys = Keys(state.range(0));
    Store store;
    std::int32_t number = 0;
    for (const std::string& key : keys)
        store.Put(key, ++number);
    for (auto _ : state) {
        for (const std::string& key : keys)
            benchmark::DoNotOptimize(store.Get(key));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(DictionaryPut<Ours>)->Arg(6)->Arg(20)->Arg(1000);
BENCHMARK(DictionaryPut<ByHand>)->Arg(6)->Arg(20)->Arg(1000);
BENCHMARK(DictionaryGet<Ours>)->Arg(6)->Arg(20)->Arg(1000);
BENCHMARK(DictionaryGet<ByHand>)->Arg(6)->Arg(20)->Arg(1000);

}  // namespace
}  // namespace qor::bench
