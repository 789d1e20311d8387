#include "bench/figures/statement_cases.h"

namespace qor::bench {

namespace {

std::string ClassLines(const std::string& kind, const std::string& party) {
    return "SELECT c.FName, b.FDate, p.FNumber, p.FName, a.FName, e.FAmount-e.FSettleAmount, "
           "e.FSettleAmount, "
           "e.FAmount, m.FNumber, m.FName, d.FNumber, d.FName, b.FBillNo, e.FNote FROM t_Bill b CROSS JOIN "
           "t_ClassEntry e ON e.FBillID=b.FBillID JOIN t_Item c ON c.FItemID=e.FClassID LEFT JOIN t_Item p "
           "ON "
           "p.FItemID=b." +
           party +
           " LEFT JOIN t_Item a ON a.FItemID=b.FAcctID LEFT JOIN t_Item m ON m.FItemID=b.FEmpID LEFT JOIN "
           "t_Item d ON d.FItemID=b.FDeptID WHERE b.FBillType=" +
           kind + " AND b.FState=0 AND c.FDeleted=0 ORDER BY c.FNumber, b.FDate, b.FBillNo, e.FIndex";
}

/// What one bill does to the balance of its party: raised, settled, taken in advance.
std::string Moves(const std::string& raises, const std::string& settles, const std::string& advance) {
    return "b.FAmount*t." + raises + ", b.FSettleAmount*t." + raises + "+(b.FAmount+b.FDiscount)*t." +
           settles + ", b.FAmount*t." + advance;
}

std::string CustomerMoves() { return Moves("FReceivable", "FReceived", "FAdvanceIn"); }
std::string SupplierMoves() { return Moves("FPayable", "FPaid", "FAdvanceOut"); }

std::string PartyBills(const std::string& party, const std::string& moves) {
    return "SELECT p.FNumber, p.FName, b.FDate, t.FName, b.FBillNo, b.FExplanation, d.FName, m.FName, " +
           moves +
           " FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType JOIN t_Item p ON p.FItemID=b." +
           party +
           " LEFT JOIN t_Item m ON m.FItemID=b.FEmpID LEFT JOIN t_Item d ON d.FItemID=b.FDeptID WHERE "
           "b.FState=0 ORDER BY p.FNumber, b.FDate, b.FBillID";
}

std::string PartySums(const std::string& party, const std::string& moves) {
    return "SELECT p.FNumber, p.FName, sum(x.r), sum(x.s), sum(x.a) FROM (SELECT b." + party + " AS p, " +
           moves.substr(0, moves.find(", b.FSettle")) + " AS r, " +
           moves.substr(moves.find("b.FSettle"), moves.rfind(", ") - moves.find("b.FSettle")) + " AS s, " +
           moves.substr(moves.rfind(", ") + 2) +
           " AS a FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType WHERE b.FState=0 AND b." +
           party + " IS NOT NULL) x JOIN t_Item p ON p.FItemID=x.p GROUP BY x.p ORDER BY p.FNumber";
}

/// The open amount of each bill, summed by party and by age.
std::string OpenByAge() {
    return "SELECT p.FNumber, p.FName, sum(o), sum(o*(age<30)), sum(o*(age BETWEEN 30 AND 59)), sum(o*(age "
           "BETWEEN 60 AND 89)), sum(o*(age>89)) FROM (SELECT b.FCustID AS c, 46000-b.FDate AS age, "
           "(b.FAmount-b.FSettleAmount)*t.FReceivable-ifnull((SELECT sum(s.FAmount+s.FDiscount) FROM "
           "t_Settlement s JOIN t_Bill k ON k.FBillID=s.FBillID AND k.FState=0 WHERE "
           "s.FTargetBillID=b.FBillID),0) AS o FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType "
           "AND "
           "t.FReceivable<>0 WHERE b.FState=0) JOIN t_Item p ON p.FItemID=c GROUP BY c ORDER BY p.FNumber";
}

/// What moved money, in the order of the days.
std::string MoneyMoves() {
    return "SELECT b.FDate, b.FBillNo, t.FName, max(0,m), max(0,-m), b.FExplanation, p.FName, d.FName, "
           "e.FName FROM "
           "(SELECT *, CASE WHEN FBillType IN (1,2,3,4,11,12,13,14,16) THEN FSettleAmount ELSE FAmount END "
           "AS m FROM "
           "t_Bill WHERE FState=0) b JOIN t_BillType t ON t.FBillType=b.FBillType LEFT JOIN t_Item p ON "
           "p.FItemID=ifnull(b.FCustID,b.FSupplyID) LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN "
           "t_Item e ON "
           "e.FItemID=b.FEmpID WHERE t.FCash<>0 AND m<>0 ORDER BY b.FDate, b.FBillID";
}

/// Lines summed by party and class, without the totals.
std::string ClassSums(const std::string& kind, const std::string& party) {
    return "SELECT p.FNumber, p.FName, c.FName, sum(e.FAmount-e.FSettleAmount), sum(e.FSettleAmount), "
           "sum(e.FAmount), c.FNumber FROM t_Bill b CROSS JOIN t_ClassEntry e ON e.FBillID=b.FBillID JOIN "
           "t_Item c ON c.FItemID=e.FClassID LEFT JOIN t_Item p ON p.FItemID=b." +
           party + " WHERE b.FBillType=" + kind + " AND b.FState=0 AND c.FDeleted=0 GROUP BY b." + party +
           ", e.FClassID ORDER BY p.FNumber, c.FNumber";
}

/// What each bill had settled, as a table to join: FTargetBillID, FDone.
std::string Done() {
    return "(SELECT FTargetBillID, sum(FAmount+FDiscount) AS FDone FROM t_Settlement WHERE FBillID IN "
           "(SELECT "
           "FBillID FROM t_Bill WHERE FState<>2) GROUP BY FTargetBillID) s ON s.FTargetBillID=b.FBillID";
}

/// Bills with what is open of them, latest first.
std::string OpenList(const std::string& kinds, const std::string& party) {
    return "SELECT b.FDate, b.FBillNo, t.FName, b.FAmount, b.FSettleAmount+ifnull(s.FDone,0), "
           "b.FAmount-b.FSettleAmount-ifnull(s.FDone,0), d.FNumber, d.FName, m.FNumber, m.FName, "
           "b.FExplanation FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType LEFT JOIN " +
           Done() +
           " LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN t_Item m ON m.FItemID=b.FEmpID WHERE "
           "b.FBillType IN (" +
           kinds + ") AND b.FState=0 AND b." + party + " IS NOT NULL ORDER BY b.FDate DESC, b.FBillNo";
}

/// The overdue bills with what is open of them and of their party.
std::string Overdue(const std::string& raises, const std::string& party) {
    return "SELECT p.FNumber, p.FName, x.FDate, x.FBillNo, x.due, 45838-x.due, x.FAmount, x.FAmount-x.o, "
           "x.o, "
           "x.total, r.FCreditLimit, d.FName, m.FName FROM (SELECT b.*, "
           "b.FAmount-b.FSettleAmount-ifnull(s.FDone,0) AS o, "
           "sum(b.FAmount-b.FSettleAmount-ifnull(s.FDone,0)) OVER (PARTITION BY b." +
           party +
           ") AS total, ifnull(b.FDueDate,b.FDate) AS due FROM t_Bill b JOIN t_BillType t ON "
           "t.FBillType=b.FBillType AND t." +
           raises + "<>0 LEFT JOIN " + Done() + " WHERE b.FState<>2) x JOIN t_Item p ON p.FItemID=x." +
           party +
           " JOIN t_Party r ON r.FItemID=p.FItemID LEFT JOIN t_Item d ON d.FItemID=x.FDeptID LEFT JOIN "
           "t_Item "
           "m ON m.FItemID=x.FEmpID WHERE x.o>0 AND x.due<=45845 ORDER BY p.FNumber, x.due, x.FBillID";
}

/// Running balances by party; with goods lines a row for each of them.
std::string PartyStatement(bool withGoods) {
    const std::string goods =
        withGoods ? "g.FIndex, i.FName, i.FNumber, u.FName, g.FQty, g.FPrice, g.FAmount, " : "";
    const std::string lines = withGoods
                                  ? " LEFT JOIN t_GoodsEntry g ON g.FBillID=b.FBillID LEFT JOIN t_Item i ON "
                                    "i.FItemID=g.FItemID LEFT JOIN t_Item u ON u.FItemID=g.FShowUnitID"
                                  : "";
    return "SELECT " + goods +
           "b.FDate, t.FName, b.FBillNo, b.FVchNumber, b.FExplanation, t.FReceivable*b.FAmount, "
           "t.FReceivable*b.FSettleAmount+(t.FReceived+t.FAdvanceIn)*b.FAmount, t.FReceived*b.FDiscount, "
           "sum(t.FReceivable*(b.FAmount-b.FSettleAmount)-(t.FReceived+t.FAdvanceIn)*b.FAmount-"
           "t.FReceived*b.FDiscount) OVER (PARTITION BY p.FNumber ORDER BY b.FDate, b.FBillID), d.FName, "
           "m.FName, b.FInvoiceNo FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType JOIN t_Item p "
           "ON "
           "p.FItemID=b.FCustID LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN t_Item m ON "
           "m.FItemID=b.FEmpID" +
           lines +
           " WHERE (t.FReceivable OR t.FReceived OR t.FAdvanceIn) AND b.FState=0 ORDER BY p.FNumber, "
           "b.FDate, "
           "b.FBillID" +
           (withGoods ? ", g.FIndex" : "");
}

/// One half of the matching balance: the bills of a side with their goods lines, under the customer that the
/// account belongs to. `raised` is what the row adds to the balance of `side`.
std::string MatchedBills(const std::string& party, const std::string& link, const std::string& raises) {
    return "SELECT l.FNumber AS account, l.FName, b.FDate AS day, t.FName, b.FBillNo, b.FVchNumber, g.FIndex "
           "AS line, i.FName, i.FNumber, u.FName, g.FQty, g.FPrice, b.FExplanation, "
           "ifnull(g.FAmount,b.FAmount)*t." +
           raises + " AS raised, '" + raises +
           "' AS side, b.FSettleAmount, b.FDiscount, d.FName, m.FName, b.FBillID AS bill FROM t_Organization "
           "l "
           "JOIN t_Bill b ON b." +
           party + "=l." + link +
           " JOIN t_BillType t ON t.FBillType=b.FBillType LEFT JOIN t_GoodsEntry g ON g.FBillID=b.FBillID "
           "LEFT "
           "JOIN t_Item i ON i.FItemID=g.FItemID LEFT JOIN t_Item u ON u.FItemID=g.FShowUnitID LEFT JOIN "
           "t_Item d ON d.FItemID=b.FDeptID LEFT JOIN t_Item m ON m.FItemID=b.FEmpID WHERE "
           "l.FMatchSupplyID<>0 AND b.FState=0";
}

/// Both balances of each account behind each row.
std::string Matched() {
    return "SELECT *, sum(raised*(side='FReceivable')) OVER w, sum(raised*(side='FPayable')) OVER w FROM (" +
           MatchedBills("FCustID", "FItemID", "FReceivable") + " UNION ALL " +
           MatchedBills("FSupplyID", "FMatchSupplyID", "FPayable") +
           ") WINDOW w AS (PARTITION BY account ORDER BY day, bill, line) ORDER BY account, day, bill, line";
}

/// The balance of each account behind each row.
std::string CashJournalRows() {
    return "SELECT a.FNumber, a.FName, b.FDate, b.FBillNo, t.FName, max(0,b.m), max(0,-b.m), sum(b.m) OVER "
           "(PARTITION BY a.FNumber ORDER BY b.FDate, b.FBillID), b.FExplanation, p.FName, d.FName, m.FName "
           "FROM (SELECT c.*, k.FCash*CASE WHEN k.FReceivable OR k.FPayable THEN c.FSettleAmount ELSE "
           "c.FAmount END AS m FROM t_Bill c JOIN t_BillType k ON k.FBillType=c.FBillType) b JOIN t_BillType "
           "t "
           "ON t.FBillType=b.FBillType JOIN t_Item a ON a.FItemID=b.FAcctID LEFT JOIN t_Item p ON "
           "p.FItemID=ifnull(b.FCustID,b.FSupplyID) LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN "
           "t_Item "
           "m ON m.FItemID=b.FEmpID WHERE b.m<>0 AND b.FState=0 ORDER BY a.FNumber, b.FDate, b.FBillID";
}

std::string CashSums() {
    return "SELECT a.FNumber, a.FName, sum(max(0,b.m)), sum(max(0,-b.m)) FROM (SELECT c.FAcctID, c.FState, "
           "k.FCash*CASE WHEN k.FReceivable OR k.FPayable THEN c.FSettleAmount ELSE c.FAmount END AS m FROM "
           "t_Bill c JOIN t_BillType k ON k.FBillType=c.FBillType) b JOIN t_Item a ON a.FItemID=b.FAcctID "
           "WHERE b.m<>0 AND b.FState=0 GROUP BY a.FItemID ORDER BY a.FNumber";
}

}  // namespace

const std::vector<StatementCase>& StatementCases() {
    static const std::vector<StatementCase> cases = {
        {10501, "", {}, MoneyMoves()},
        {10502, "", {}, PartyBills("FCustID", CustomerMoves())},
        {10503, "", {}, PartySums("FCustID", CustomerMoves())},
        {10504, "", {}, PartyBills("FSupplyID", SupplierMoves())},
        {10505, "", {}, PartySums("FSupplyID", SupplierMoves())},
        {10506, "", {}, PartyStatement(false)},
        {10506, "with goods lines", {{"ShowDetail", "1"}}, PartyStatement(true)},
        {10507, "", {}, Overdue("FReceivable", "FCustID")},
        {10508, "", {}, Overdue("FPayable", "FSupplyID")},
        {10521,
         "by customer",
         {{"BLevel", "1"}, {"ELevel", "3"}, {"chkGrouyByCust", "1"}},
         ClassSums("11", "FCustID")},
        {10522, "", {}, ClassLines("11", "FCustID")},
        {10523,
         "by supplier",
         {{"BLevel", "1"}, {"ELevel", "3"}, {"chkGrouyBySupply", "1"}},
         ClassSums("12", "FSupplyID")},
        {10524, "", {}, ClassLines("12", "FSupplyID")},
        {10525, "settled ones too", {{"chkShowNonZero", "0"}}, OpenList("1,2,9,11,13,16,25", "FCustID")},
        {10526, "settled ones too", {{"chkShowNonZero", "0"}}, OpenList("3,4,10,12,14,26", "FSupplyID")},
        {10527, "with goods lines", {}, Matched()},
        {10528, "", {}, CashJournalRows()},
        {10529, "", {}, CashSums()},
        {10530, "", {}, OpenByAge()},
        {10531, "", {}, PartySums("FCustID", CustomerMoves())},
        {10532, "", {}, PartySums("FSupplyID", SupplierMoves())},
    };
    return cases;
}

}  // namespace qor::bench
