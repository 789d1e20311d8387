#include "embedded/goods_lines.h"

namespace qor {

GoodsLineReader::GoodsLineReader(AccountSet& set, bool shortNumbers)
    : lines_(set.database(),
             "SELECT e.FItemID, g.FModel, e.FAuxName, e.FBatchNo, g.FUnitID, e.FShowUnitID, e.FQty, "
             "e.FPrice, e.FShowRate, e.FAmount FROM t_GoodsEntry e LEFT JOIN t_Goods g ON "
             "g.FItemID=e.FItemID WHERE e.FBillID=? ORDER BY e.FIndex"),
      items_(set, shortNumbers) {}

std::vector<GoodsLineRow> GoodsLineReader::Of(std::int64_t bill) {
    std::vector<GoodsLineRow> rows;
    lines_.With(bill);
    while (lines_.Step()) {
        GoodsLineRow& row = rows.emplace_back();
        row.item = &items_.Of(lines_.Int(0));
        row.model = texts_.Share(lines_.Text(1));
        row.aux = texts_.Share(lines_.Text(2));
        row.batch = texts_.Share(lines_.Text(3));
        row.unit = items_.Of(lines_.Int(4)).name;
        row.showUnit = items_.Of(lines_.Int(5)).name;
        row.quantity = lines_.Int(6);
        row.price = lines_.Int(7);
        row.showRate = lines_.Int(8);
        row.amount = lines_.Int(9);
    }
    return rows;
}

}  // namespace qor
