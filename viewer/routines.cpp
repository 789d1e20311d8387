#include "viewer/routines.h"

#include <algorithm>
#include <string>

#include "platform/conversions.h"
#include "platform/late_bound.h"
#include "report/column_table.h"
#include "report/condition_captions.h"
#include "report/identifier_table.h"
#include "services/texts.h"

namespace qor::viewer {

namespace {

using Arguments = std::span<Value>;

std::string Text(Arguments a, std::size_t position) { return ToText(a[position]); }

// By-reference arguments: a variable of the routine's own type, which goes back even where the routine fails.
template <class T>
class Variable {
 public:
    Variable(Value& place, T content) : place_(place), content_(std::move(content)) {}
    ~Variable() { place_ = Value(content_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    T& operator*() { return content_; }

 private:
    Value& place_;
    T content_;
};

constexpr Routine kRoutines[] = {
    // Session and process bag.
    {"GetPropsString", 0, 0, [](Process& p, Arguments) -> Value { return p.session.GetPropsString(); }},
    {"GetSharedProperty", 1, 2,
     [](Process& p, Arguments a) {
         a[0] = Text(a, 0);
         return p.session.GetSharedProperty(a[0]);
     },
     true},
    {"ParsePropsString", 1, 1,
     [](Process& p, Arguments a) -> Value { return p.session.ParsePropsString(Text(a, 0)); }},
    {"GetPropsValue", 1, 1,
     [](Process& p, Arguments a) -> Value { return p.session.GetPropsValue(Text(a, 0)); }},
    {"GetUserID", 0, 0, [](Process& p, Arguments) -> Value { return p.session.GetUserID(); }},
    {"GetProcessBagItem", 1, 2,
     [](Process& p, Arguments a) {
         return p.bag.GetProcessBagItem(Text(a, 0), a.size() > 1 ? a[1] : Value());
     }},
    {"SetProcessBagItem", 2, 2,
     [](Process& p, Arguments a) { return p.bag.SetProcessBagItem(Text(a, 0), a[1]), Value(); }},
    {"GetAppType", 0, 0, [](Process& p, Arguments) -> Value { return p.bag.GetAppType(); }},
    {"GetIndustryType", 0, 0, [](Process& p, Arguments) -> Value { return p.bag.GetIndustryType(); }},
    {"IsGLAndICUnite", 0, 0, [](Process& p, Arguments) -> Value { return p.bag.IsGLAndICUnite(); }},

    // Data rights.
    {"GetAuthrizeItemClassList", 0, 0,
     [](Process& p, Arguments) -> Value { return p.dataRights.GetAuthrizeItemClassList(); }},
    {"NeedAuthrize", 0, 0, [](Process& p, Arguments) -> Value { return p.dataRights.NeedAuthrize(); }},
    {"AddRightClause", 2, 2,
     [](Process& p, Arguments a) -> Value {
         const Ref<Vector> items = As<Vector>(a[0]);
         Variable<std::string> clause(a[1], Text(a, 1));
         return p.dataRights.AddRightClause(items.get(), *clause);
     },
     true},
    {"NewUserFieldSpec", 4, 4,
     [](Process& p, Arguments a) -> Value {
         return p.dataRights.NewUserFieldSpec(ToBoolean(a[0]), Text(a, 1), Text(a, 2), Text(a, 3));
     }},

    // Texts.
    {"ResText", 1, 1, [](Process&, Arguments a) -> Value { return ResText(Text(a, 0)); }},
    {"GetSessionValue", 1, 1,
     [](Process& p, Arguments a) -> Value { return p.texts.GetSessionValue(Text(a, 0)); }},
    {"LoadFormResources", 3, 3,
     [](Process& p, Arguments a) {
         Variable<Ref<Dictionary>> options(a[1], As<Dictionary>(a[1]));
         Variable<std::string> section(a[2], Text(a, 2));
         p.texts.LoadFormResources(a[0].IsObject() ? a[0].object() : nullptr, *options, *section);
         return Value();
     },
     true},

    // System profile and item lookup.
    {"GetGLData", 0, 0,
     [](Process& p, Arguments) -> Value { return Ref<Object>(&p.systemProfile.GetGLData()); }},
    {"GetGLView", 0, 0,
     [](Process& p, Arguments) -> Value { return Ref<Object>(&p.systemProfile.GetGLView()); }},
    {"GetSystemProfileObject", 0, 0,
     [](Process& p, Arguments) -> Value { return Ref<Object>(&p.systemProfile.GetSystemProfileObject()); }},
    {"ExecuteSql", 1, 1,
     [](Process& p, Arguments a) -> Value { return p.systemProfile.ExecuteSql(Text(a, 0)); }},
    {"GetStartPeriodDates", 2, 2,
     [](Process& p, Arguments a) {
         Variable<std::string> start(a[0], Text(a, 0)), end(a[1], Text(a, 1));
         p.systemProfile.GetStartPeriodDates(*start, *end);
         return Value();
     },
     true},
    {"CurrentPeriodFirstDay", 0, 0,
     [](Process& p, Arguments) -> Value { return p.systemProfile.CurrentPeriodFirstDay(); }},
    {"UseLongNumber", 0, 0, [](Process& p, Arguments) -> Value { return p.systemProfile.UseLongNumber(); }},
    {"DisplayDeleted", 0, 0, [](Process& p, Arguments) -> Value { return p.systemProfile.DisplayDeleted(); }},
    {"ItemLookup", 4, 4,
     [](Process& p, Arguments a) -> Value {
         return p.itemPicker.ItemLookup(ToInt32(a[0]), Text(a, 1), Text(a, 2), ToInt16(a[3]));
     }},
    {"CreateComponent", 1, 1,
     [](Process& p, Arguments a) -> Value { return p.platform.CreateComponent(Text(a, 0)); }},

    // User profile.
    {"GetUserProfileValue", 4, 4,
     [](Process& p, Arguments a) {
         return p.userProfile.GetUserProfileValue(Text(a, 0), Text(a, 1), Text(a, 2), a[3]);
     }},
    {"SaveUserProfileValue", 4, 4,
     [](Process& p, Arguments a) -> Value {
         return p.userProfile.SaveUserProfileValue(Text(a, 0), Text(a, 1), Text(a, 2), a[3]);
     }},

    // Report tables.
    {"SetHeaderList", 1, 1,
     [](Process& p, Arguments a) { return SetHeaderList(p, As<Vector>(a[0])), Value(); }},
    {"AddHeader", 6, 6,
     [](Process& p, Arguments a) {
         AddHeader(p, Text(a, 0), Text(a, 1), Text(a, 2), Text(a, 3), ToInt16(a[4]), ToInt16(a[5]));
         return Value();
     }},
    {"BuildConditionCaptions", 2, 2,
     [](Process& p, Arguments a) -> Value {
         const Ref<Dictionary> filter = As<Dictionary>(a[0]);
         Variable<Ref<Dictionary>> property(a[1], As<Dictionary>(a[1]));
         return BuildConditionCaptions(p, filter.get(), *property);
     },
     true},
    {"UsesAccountStartDate", 1, 1,
     [](Process&, Arguments a) -> Value { return UsesAccountStartDate(Text(a, 0)); }},

    // The automation conversions.
    {"CBool", 1, 1, [](Process&, Arguments a) -> Value { return ToBoolean(a[0]); }},
    {"CInt", 1, 1, [](Process&, Arguments a) -> Value { return ToInt16(a[0]); }},
    {"CLng", 1, 1, [](Process&, Arguments a) -> Value { return ToInt32(a[0]); }},
    {"CDbl", 1, 1, [](Process&, Arguments a) -> Value { return ToDouble(a[0]); }},
    {"CStr", 1, 1, [](Process&, Arguments a) -> Value { return ToText(a[0]); }},
    {"CDate", 1, 1, [](Process&, Arguments a) -> Value { return ToDate(a[0]); }},
    {"Val", 1, 1, [](Process&, Arguments a) -> Value { return Val(Text(a, 0)); }},
    {"IsNumeric", 1, 1, [](Process&, Arguments a) -> Value { return IsNumeric(a[0]); }},
    {"IsDate", 1, 1, [](Process&, Arguments a) -> Value { return IsDate(a[0]); }},
};

}  // namespace

const Routine* FindRoutine(std::string_view name) {
    const auto found = std::ranges::find(kRoutines, name, &Routine::name);
    return found == std::end(kRoutines) ? nullptr : &*found;
}

Value CallRoutine(const Routine& routine, Process& process, std::span<Value> arguments) {
    if (arguments.size() < routine.required) Raise(Automation::ArgumentNotOptional);
    if (arguments.size() > routine.most) Raise(Automation::WrongArguments);
    return routine.run(process, arguments);
}

}  // namespace qor::viewer
