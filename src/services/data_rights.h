// Data rights: the condition that limits a report to the parties its user may see. The client writes it,
// the server applies it inside the report's statement.
#pragma once

#include <string>
#include <string_view>

#include "platform/dictionary.h"
#include "platform/vector.h"
#include "services/process_bag.h"
#include "services/session.h"

namespace qor {

class DataRights {
 public:
    DataRights(Platform& platform, ProcessBag& bag, Session& session)
        : platform_(platform), bag_(bag), session_(session) {}

    /// The item classes that are subject to rights, as the server lists them; kept in the process bag.
    std::string GetAuthrizeItemClassList();
    /// Whether this account set uses rights at all; false on any failure. The first call asks the server.
    bool NeedAuthrize();
    /// Extends `clause` by one condition for each right item (DataTable, DataTableAs, ItemClassType) that is
    /// subject to rights. Answers whether rights were evaluated; no list is an error (91) only then.
    bool AddRightClause(Vector* items, std::string& clause);
    /// A new right item.
    Ref<Dictionary> NewRightItem(std::string_view dataTable, std::string_view alias,
                                 std::string_view itemClass);
    /// A user-field descriptor for a report's properties.
    Ref<Dictionary> NewUserFieldSpec(bool hasVect, std::string_view prefixValue, std::string_view classType,
                                     std::string_view displayFields);

 private:
    Value AskServer();

    Platform& platform_;
    ProcessBag& bag_;
    Session& session_;
    bool asked_ = false;  // whether NeedAuthrize has asked the server once
};

}  // namespace qor
