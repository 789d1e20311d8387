// The least that one could ask SQLite for the rows of a report: the same bills, the same columns, no dialog,
// no objects.
#include "bench/figures/whole_run.h"

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

}  // namespace

std::string BareStatementOf(std::int32_t number) {
    switch (number) {
        case 10501:
            return MoneyMoves();
        case 10502:
            return PartyBills("FCustID", CustomerMoves());
        case 10503:
            return PartySums("FCustID", CustomerMoves());
        case 10504:
            return PartyBills("FSupplyID", SupplierMoves());
        case 10505:
            return PartySums("FSupplyID", SupplierMoves());
        case 10522:
            return ClassLines("11", "FCustID");
        case 10524:
            return ClassLines("12", "FSupplyID");
        case 10530:
            return OpenByAge();
        default:
            return "";
    }
}

}  // namespace qor::bench
