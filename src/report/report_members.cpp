#include "report/report_members.h"

#include <array>
#include <cstddef>

#include "platform/object.h"
#include "report/report_object.h"

namespace qor {

namespace {

enum Feature : unsigned { kAlways = 0, kDetail = 1, kPagedData = 2, kDataRight = 4 };

struct Row {
    Feature feature;
    Member member;
};

Report& Self(Object& self) { return static_cast<Report&>(self); }

template <void (Report::*Function)()>
constexpr Member Operation(std::string_view name) {
    return {.name = name, .invoke = [](Object& self, Arguments) {
                (Self(self).*Function)();
                return Value();
            }};
}

template <auto Function>
constexpr Member ObjectProperty(std::string_view name) {
    return {.name = name,
            .kind = InvokeKind::Get,
            .invoke = [](Object& self, Arguments) -> Value { return (Self(self).*Function)(); },
            .result = ParameterType::Object};
}

constexpr Row kRows[] = {
    {kAlways,
     {.name = "ExtFirter",
      .kind = InvokeKind::Put,
      .invoke = [](Object& self, Arguments a) { return Self(self).SetExtFirter(a[0]->text()), Value(); },
      .parameters = {{{"Identifier", ParameterType::Text}}}}},
    {kDetail,
     {.name = "GetDetailReport",
      .invoke = [](Object& self, Arguments a) -> Value { return Self(self).GetDetailReport(a[0]->int32()); },
      .result = ParameterType::Object,
      .parameters = {{{"Row", ParameterType::Int32}}}}},
    {kPagedData, Operation<&Report::GetMutilPageData>("GetMutilPageData")},
    {kAlways, Operation<&Report::GetReportData>("GetReportData")},
    {kAlways, Operation<&Report::Refresh>("Refresh")},
    {kAlways, Operation<&Report::ShowFilter>("ShowFilter")},
    {kDataRight,
     {.name = "AddDataRight",
      .invoke =
          [](Object& self, Arguments a) {
              const Value target = a.empty() || a[0].IsMissing() ? Value::Nothing() : *a[0];
              Self(self).AddDataRight(As<Dictionary>(target).get());
              return Value();
          },
      .parameters = {{{"Target", ParameterType::Object, false, true}}}}},
    {kAlways, ObjectProperty<&Report::Filter>("Filter")},
    {kAlways,
     {.name = "Filter",
      .kind = InvokeKind::PutRef,
      .invoke = [](Object& self,
                   Arguments a) { return Self(self).SetFilter(As<Dictionary>(*a[0])), Value(); },
      .parameters = {{{"Filter", ParameterType::Object}}}}},
    {kAlways, ObjectProperty<&Report::Header>("Header")},
    {kAlways, ObjectProperty<&Report::Property>("Property")},
    {kAlways, ObjectProperty<&Report::Result>("Result")},
    {kAlways,
     {.name = "RptID",
      .kind = InvokeKind::Get,
      .invoke = [](Object& self, Arguments) -> Value { return Self(self).RptID(); },
      .result = ParameterType::Int32}},
    {kAlways,
     {.name = "RptID",
      .kind = InvokeKind::Put,
      .invoke = [](Object& self, Arguments a) { return Self(self).SetRptID(a[0]->int32()), Value(); },
      .parameters = {{{"RptID", ParameterType::Int32}}}}},
    {kAlways, ObjectProperty<&Report::Rs>("Rs")},
    {kPagedData, ObjectProperty<&Report::MutilPageRs>("MutilPageRs")},
    {kPagedData, ObjectProperty<&Report::RowBreakRs>("RowBreakRs")},
    {kAlways, ObjectProperty<&Report::Title>("Title")},
};

constexpr bool Granted(Feature feature, unsigned granted) { return (feature & granted) == feature; }

template <unsigned granted>
constexpr auto SelectMembers() {
    constexpr std::size_t count = [] {
        std::size_t members = 0;
        for (const Row& row : kRows) {
            members += Granted(row.feature, granted) ? 1 : 0;
        }
        return members;
    }();
    std::array<Member, count> selected{};
    std::size_t next = 0;
    for (const Row& row : kRows) {
        if (Granted(row.feature, granted)) selected[next++] = row.member;
    }
    return selected;
}

template <unsigned granted>
constexpr auto kMembersOf = SelectMembers<granted>();

template <std::size_t... granted>
constexpr auto AllTables(std::index_sequence<granted...>) {
    return std::array<std::span<const Member>, sizeof...(granted)>{
        std::span<const Member>(kMembersOf<granted>)...};
}

}  // namespace

std::span<const Member> ReportMembers(const ReportDescription& description) {
    static constexpr auto kTables = AllTables(std::make_index_sequence<8>());
    return kTables[(description.hasDetailReport ? kDetail : 0u) |
                   (description.hasPagedData ? kPagedData : 0u) |
                   (description.publicDataRight ? kDataRight : 0u)];
}

}  // namespace qor
