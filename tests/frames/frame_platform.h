// The surroundings of a frame under test: a screenless window system, a clock that stands, and one picker.
#pragma once

#include <string>
#include <vector>

#include "frames/scheme_store.h"
#include "platform/conversions.h"
#include "platform/headless.h"
#include "platform/platform.h"

namespace qor::test {

inline Date Day(int year, int month, int day) { return DateFromCalendar(year, month, day).value(); }

/// An object with readable members.
class Readable final : public Object {
 public:
    Readable(std::string member, Value value) : member_(std::move(member)), value_(std::move(value)) {}
    std::string_view ClassName() const override { return "Readable"; }
    MemberId FindMember(std::string_view name) override { return name == member_ ? 0 : kNoMember; }
    Value Invoke(MemberId, InvokeKind, Arguments) override { return value_; }

 private:
    std::string member_;
    Value value_;
};

/// QOREBCGLView.GLView: keeps what it was asked and answers what the test has laid ready.
class Picker final : public Object {
 public:
    Value answer = Value::Nothing();
    bool fails = false;
    std::vector<std::vector<Value>> calls;
    bool allByReference = true;

    std::string_view ClassName() const override { return "QOREBCGLView.GLView"; }
    MemberId FindMember(std::string_view name) override { return name == "ItemLookUp" ? 0 : kNoMember; }
    Value Invoke(MemberId, InvokeKind, Arguments arguments) override {
        calls.emplace_back();
        for (Argument& argument : arguments) {
            allByReference = allByReference && argument.IsByRef();
            calls.back().push_back(*argument);
        }
        if (fails) Raise(Automation::InvalidCall);
        return answer;
    }
};

/// A lookup object whose choice has that number.
inline Value Chosen(Value number) {
    return MakeRef<Readable>("ReturnObject", MakeRef<Readable>("Number", std::move(number)));
}

class FramePlatform final : public Platform {
 public:
    HeadlessWindows screen;
    Ref<Picker> picker = MakeRef<Picker>();
    std::vector<std::string> created;

    Ref<Object> CreateComponent(std::string_view name) override {
        created.emplace_back(name);
        if (!picker) Raise(Automation::CannotCreate);
        return picker;
    }
    WindowSystem& windows() override { return screen; }
    Date Now() override { return {Day(2020, 9, 15).serial + 0.75}; }
    std::int32_t ProcessNumber() override { return 1; }
    Ref<Object> ProcessBag() override { return {}; }
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost&) override { return nullptr; }
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost&) override { return nullptr; }
};

/// A store whose file cannot be used.
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

/// "key=value" of a dictionary, one after the other, with the type where it is not text.
inline std::string Written(const Dictionary& dictionary) {
    std::string all;
    for (std::size_t i = 0; i < dictionary.Count(); ++i) {
        const Value value = dictionary.Get(dictionary.KeyAt(i));
        all += (all.empty() ? "" : " ") + dictionary.KeyAt(i) + "=" + ToText(value);
        if (!value.IsText()) all += ":" + std::string(TypeName(value.type()));
    }
    return all;
}

}  // namespace qor::test
