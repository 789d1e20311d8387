#include "embedded/firm_csv.h"

#include <fstream>
#include <string>
#include <string_view>

namespace qor::test {

namespace {

std::string Cents(const std::string& column) {
    return "CASE WHEN " + column + "<0 THEN '-' ELSE '' END||printf('%d.%02d',abs(" + column + ")/100,abs(" +
           column + ")%100)";
}

std::string TenThousandths(const std::string& column) {
    return "CASE WHEN " + column + "<0 THEN '-' ELSE '' END||printf('%d.%04d',abs(" + column +
           ")/10000,abs(" + column + ")%10000)";
}

std::string Day(const std::string& column) { return "date(" + column + "+2415018.5)"; }
std::string YesNo(const std::string& condition) {
    return "CASE WHEN " + condition + " THEN 'yes' ELSE 'no' END";
}
std::string Code(const std::string& column) {
    return "(SELECT FNumber FROM t_Item WHERE FItemID=" + column + ")";
}
std::string Number(const std::string& column) {
    return "(SELECT FBillNo FROM t_Bill WHERE FBillID=" + column + ")";
}
std::string Profile(const std::string& key) {
    return "(SELECT FValue FROM t_SystemProfile WHERE FKey='" + key + "')";
}
std::string Month(const std::string& which) {
    return "printf('%04d-%02d'," + Profile(which + "Year") + "," + Profile(which + "Period") + ")";
}

std::string Quoted(std::string_view cell) {
    if (cell.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(cell);
    std::string quoted = "\"";
    for (const char c : cell) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + "\"";
}

struct CsvExport {
    AccountSet& set;
    const std::filesystem::path& folder;

    void Write(std::string_view name, const std::string& header, const std::string& statement) const {
        Statement rows(set.database(), statement);
        const int width = sqlite3_column_count(rows.handle());
        std::ofstream out(folder / name, std::ios::binary);
        out << header << "\r\n";
        while (rows.Step()) {
            for (int i = 0; i < width; ++i) {
                out << (i > 0 ? "," : "") << Quoted(rows.Text(i));
            }
            out << "\r\n";
        }
    }

    void Items(std::string_view name, int itemClass, const std::string& header = "",
               const std::string& cells = "", const std::string& table = "") const {
        const std::string join = table.empty() ? "" : " LEFT JOIN " + table + " x ON x.FItemID=i.FItemID";
        Write(name, "code,name,is_category,disabled" + header,
              "SELECT FNumber, FName, " + YesNo("FDetail=0") + ", " + YesNo("FDeleted") + cells +
                  " FROM t_Item i" + join + " WHERE FItemClassID=" + std::to_string(itemClass) +
                  " ORDER BY i.FItemID");
    }
};

/// The cell only where the item has a row in its class's table.
std::string IfDetail(const std::string& cell) { return ", CASE WHEN FDetail THEN " + cell + " END"; }

void WriteItems(const CsvExport& csv) {
    const std::string party = IfDetail("replace(FRightUserID,',',';')") + IfDetail(Cents("FCreditLimit")) +
                              ", FCreditDays, FContact, FPhone";
    csv.Items("departments.csv", 2);
    csv.Items("employees.csv", 3, ",department", "," + Code("FDeptID"), "t_Employee");
    csv.Items("income_classes.csv", 1121);
    csv.Items("expense_classes.csv", 1122);
    csv.Items("accounts.csv", 36, ",bank,opening_balance",
              IfDetail(YesNo("FIsBank")) + IfDetail(Cents("FBeginAmount")), "t_Account");
    csv.Items("units.csv", 7);
    csv.Items("goods.csv", 4, ",model,unit,show_unit,show_rate,price",
              ", FModel, " + Code("FUnitID") + ", " + Code("FShowUnitID") + ", FShowRate" +
                  IfDetail(TenThousandths("FPrice")),
              "t_Goods");
    csv.Items("suppliers.csv", 8, ",users,credit_limit,credit_days,contact,phone", party, "t_Party");
    csv.Items("customers.csv", 1, ",users,credit_limit,credit_days,contact,phone,matching_supplier",
              party + ", " + Code("FMatchSupplyID"), "t_Party");
    csv.Items("currencies.csv", 12);
    csv.Items("settlement_types.csv", 130);
}

}  // namespace

void WriteFirmCsv(AccountSet& set, const std::filesystem::path& folder) {
    const CsvExport csv{set, folder};
    std::filesystem::create_directories(folder);
    csv.Write("firm.csv", "name,start_month,current_month",
              "SELECT " + Profile("CompanyName") + ", " + Month("Start") + ", " + Month("Current"));
    csv.Write("users.csv", "number,name,all_rights",
              "SELECT FUserID, FName, " + YesNo("FAllRights") + " FROM t_User");
    WriteItems(csv);
    csv.Write(
        "bills.csv",
        "kind,number,date,state,customer,supplier,to_party,department,employee,account,to_account,amount,"
        "settled,discount,due_date,related_bill,biller,invoice,voucher,explanation",
        "SELECT (SELECT FPrefix FROM t_BillType t WHERE t.FBillType=b.FBillType), FBillNo, " + Day("FDate") +
            ", CASE FState WHEN 1 THEN 'not audited' WHEN 2 THEN 'void' END, " + Code("FCustID") + ", " +
            Code("FSupplyID") + ", " + Code("FToPartyID") + ", " + Code("FDeptID") + ", " + Code("FEmpID") +
            ", " + Code("FAcctID") + ", " + Code("FToAcctID") + ", " + Cents("FAmount") + ", " +
            Cents("FSettleAmount") + ", " + Cents("FDiscount") + ", " + Day("FDueDate") + ", " +
            Number("b.FRelatedID") +
            ", FBillerID, FInvoiceNo, FVchNumber, FExplanation FROM t_Bill b ORDER BY FBillID");
    csv.Write("class_lines.csv", "bill,class,amount,settled,note",
              "SELECT " + Number("e.FBillID") + ", " + Code("FClassID") + ", " + Cents("FAmount") + ", " +
                  Cents("FSettleAmount") + ", FNote FROM t_ClassEntry e ORDER BY FBillID, FIndex");
    csv.Write("goods_lines.csv", "bill,goods,quantity,price,amount,unit,unit_rate,aux,batch,note",
              "SELECT " + Number("e.FBillID") + ", " + Code("e.FItemID") + ", " + TenThousandths("FQty") +
                  ", " + TenThousandths("FPrice") + ", " + Cents("FAmount") + ", " + Code("FShowUnitID") +
                  ", FShowRate, FAuxName, FBatchNo, FNote FROM t_GoodsEntry e ORDER BY FBillID, FIndex");
    csv.Write(
        "bill_fields.csv", "bill,field,text",
        "SELECT " + Number("h.FBillID") + ", FIndex, FText FROM t_BillHeadField h ORDER BY FBillID, FIndex");
    csv.Write("settlements.csv", "bill,source,target,date,amount,discount",
              "SELECT " + Number("s.FBillID") + ", " + Number("FSourceBillID") + ", " +
                  Number("FTargetBillID") + ", " + Day("FDate") + ", " + Cents("FAmount") + ", " +
                  Cents("FDiscount") + " FROM t_Settlement s ORDER BY FSettlementID");
}

}  // namespace qor::test
