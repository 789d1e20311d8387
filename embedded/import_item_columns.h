// What the columns of the base data's files are written to: one row a column, whatever file it stands in.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "embedded/bill_kinds.h"

namespace qor {

enum class ItemCell { Text, YesNo, Cents, Price, Days, Rate, Users, Department, Unit, Supplier };

struct ItemColumn {
    std::string_view name;
    ItemCell cell;
    const char* update;   // ?1 is the item, ?2 the value; touches nothing where the value stands already
    bool extra = true;    // a category has none
    bool needed = false;  // by all but categories
};

inline constexpr ItemColumn kItemColumns[] = {
    {"name", ItemCell::Text, "UPDATE t_Item SET FName=?2 WHERE FItemID=?1 AND FName IS NOT ?2", false},
    {"disabled", ItemCell::YesNo, "UPDATE t_Item SET FDeleted=?2 WHERE FItemID=?1 AND FDeleted IS NOT ?2",
     false},
    {"department", ItemCell::Department,
     "UPDATE t_Employee SET FDeptID=?2 WHERE FItemID=?1 AND FDeptID IS NOT ?2", true, true},
    {"bank", ItemCell::YesNo, "UPDATE t_Account SET FIsBank=?2 WHERE FItemID=?1 AND FIsBank IS NOT ?2"},
    {"opening_balance", ItemCell::Cents,
     "UPDATE t_Account SET FBeginAmount=?2 WHERE FItemID=?1 AND FBeginAmount IS NOT ?2"},
    {"model", ItemCell::Text, "UPDATE t_Goods SET FModel=?2 WHERE FItemID=?1 AND FModel IS NOT ?2"},
    {"unit", ItemCell::Unit, "UPDATE t_Goods SET FUnitID=?2 WHERE FItemID=?1 AND FUnitID IS NOT ?2", true,
     true},
    {"show_unit", ItemCell::Unit,
     "UPDATE t_Goods SET FShowUnitID=ifnull(nullif(?2,0),FUnitID) WHERE FItemID=?1 AND FShowUnitID IS NOT "
     "ifnull(nullif(?2,0),FUnitID)"},
    {"show_rate", ItemCell::Rate, "UPDATE t_Goods SET FShowRate=?2 WHERE FItemID=?1 AND FShowRate IS NOT ?2"},
    {"price", ItemCell::Price, "UPDATE t_Goods SET FPrice=?2 WHERE FItemID=?1 AND FPrice IS NOT ?2"},
    {"users", ItemCell::Users,
     "UPDATE t_Party SET FRightUserID=?2 WHERE FItemID=?1 AND FRightUserID IS NOT ?2"},
    {"credit_limit", ItemCell::Cents,
     "UPDATE t_Party SET FCreditLimit=?2 WHERE FItemID=?1 AND FCreditLimit IS NOT ?2"},
    {"credit_days", ItemCell::Days,
     "UPDATE t_Party SET FCreditDays=?2 WHERE FItemID=?1 AND FCreditDays IS NOT ?2"},
    {"contact", ItemCell::Text, "UPDATE t_Party SET FContact=?2 WHERE FItemID=?1 AND FContact IS NOT ?2"},
    {"phone", ItemCell::Text, "UPDATE t_Party SET FPhone=?2 WHERE FItemID=?1 AND FPhone IS NOT ?2"},
    {"matching_supplier", ItemCell::Supplier,
     "UPDATE t_Party SET FMatchSupplyID=?2 WHERE FItemID=?1 AND FMatchSupplyID IS NOT ?2"},
};

/// The row that an item of a class has in a table of its own, before its columns are read, and how it goes
/// again where the item turns out to be a category. ?1 is the item; ?2 all users, who see a party unless the
/// file says otherwise.
struct ItemTable {
    std::int32_t itemClass;
    const char* insert;
    const char* remove;
};

inline constexpr ItemTable kItemTables[] = {
    {item_class::kEmployee, "INSERT OR IGNORE INTO t_Employee VALUES(?1,0)",
     "DELETE FROM t_Employee WHERE FItemID=?"},
    {item_class::kAccount, "INSERT OR IGNORE INTO t_Account VALUES(?1,0,0)",
     "DELETE FROM t_Account WHERE FItemID=?"},
    {item_class::kGoods, "INSERT OR IGNORE INTO t_Goods VALUES(?1,'',0,0,1,0)",
     "DELETE FROM t_Goods WHERE FItemID=?"},
    {item_class::kSupplier, "INSERT OR IGNORE INTO t_Party VALUES(?1,?2,0,0,0,'','')",
     "DELETE FROM t_Party WHERE FItemID=?"},
    {item_class::kCustomer, "INSERT OR IGNORE INTO t_Party VALUES(?1,?2,0,0,0,'','')",
     "DELETE FROM t_Party WHERE FItemID=?"},
};

}  // namespace qor
