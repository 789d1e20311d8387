#include "bench/figures/journal.h"

#include <cmath>
#include <fstream>
#include <sstream>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/csv_reader.h"
#include "embedded/import_values.h"
#include "platform/conversions.h"

namespace qor::bench {

namespace {

/// What customers and suppliers owe and are owed: for each bill its own account and what it opens with.
constexpr const char* kClaims =
    "WITH claims AS (SELECT b.FBillID AS bill, r.root||':'||p.FNumber||':'||b.FDate||'-'||b.FBillID AS "
    "account, "
    "CASE WHEN r.raises<>0 THEN (b.FAmount-b.FSettleAmount)*r.raises WHEN b.FToPartyID IS NULL THEN "
    "-b.FAmount "
    "ELSE b.FAmount END AS open FROM t_Bill b JOIN (SELECT FBillType, 'Receivable' AS root, FReceivable AS "
    "raises, "
    "FReceivable<>0 OR FAdvanceIn>0 OR FTarget*FReceived<>0 AS takes FROM t_BillType UNION ALL SELECT "
    "FBillType, "
    "'Payable', FPayable, FPayable<>0 OR FAdvanceOut>0 OR FTarget*FPaid<>0 FROM t_BillType) r ON "
    "r.FBillType=b.FBillType AND r.takes JOIN t_Item p ON "
    "p.FItemID=ifnull(b.FToPartyID,ifnull(b.FCustID,b.FSupplyID)) WHERE b.FState=0) ";

/// Bills that do not settle: the day, the bill, up to three accounts with their cents.
constexpr const char* kBills =
    "SELECT b.FDate, b.FBillID, c.account, c.open, 'Cash:'||a.FNumber, t.FCash*CASE WHEN t.FReceivable<>0 OR "
    "t.FPayable<>0 THEN b.FSettleAmount ELSE b.FAmount END, NULL, 0 FROM t_Bill b JOIN t_BillType t ON "
    "t.FBillType=b.FBillType LEFT JOIN claims c ON c.bill=b.FBillID LEFT JOIN t_Item a ON "
    "a.FItemID=b.FAcctID "
    "WHERE b.FState=0 AND b.FBillType NOT IN (5,7) AND (c.bill IS NOT NULL OR a.FItemID IS NOT NULL)";

/// Settlements: the target, the advance or counter-claim that is used up, the money.
constexpr const char* kSettlements =
    "SELECT s.FDate, b.FBillID, c.account, -s.FAmount-s.FDiscount, u.account, CASE WHEN b.FBillType=19 THEN "
    "-s.FAmount ELSE s.FAmount END, 'Cash:'||a.FNumber, t.FCash*s.FAmount FROM t_Settlement s JOIN t_Bill b "
    "ON "
    "b.FBillID=s.FBillID JOIN t_BillType t ON t.FBillType=b.FBillType JOIN claims c ON "
    "c.bill=s.FTargetBillID LEFT "
    "JOIN claims u ON u.bill=s.FSourceBillID LEFT JOIN t_Item a ON a.FItemID=b.FAcctID WHERE b.FState=0";

constexpr std::string_view kRoot = "Receivable:";

}  // namespace

std::int64_t WriteJournal(const std::filesystem::path& accountSet, const std::filesystem::path& journal) {
    AccountSet set(accountSet);
    std::ofstream out(journal);
    std::int64_t count = 0;
    for (const char* rows : {kBills, kSettlements}) {
        Statement row(set.database(), std::string(kClaims) + rows);
        for (; row.Step(); ++count) {
            out << DayText(row.Int(0)) << " bill " << row.Int(1) << '\n';
            for (int account = 2; account < 8; account += 2) {
                if (row.IsNull(account)) continue;
                out << "    " << row.Text(account) << "  " << CentsText(row.Int(account + 1)) << '\n';
            }
            out << "    Other\n\n";
        }
    }
    return count;
}

JournalFigures ReadBalances(const std::string& output, std::int64_t cutOff) {
    JournalFigures figures;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string amount, account;
        words >> amount >> account;
        if (!account.starts_with(kRoot)) continue;
        const CellReading cents = ReadCents(amount);
        if (!cents.mistake.empty()) throw std::runtime_error(cents.mistake);
        account.erase(0, kRoot.size());
        const std::size_t colon = account.find(':');
        figures.byCustomer[account.substr(0, colon)] += cents.value;
        if (colon == std::string::npos) continue;
        const auto day = static_cast<std::int64_t>(Val(account.substr(colon + 1, 5)));
        figures.byAge[static_cast<int>(std::min<std::int64_t>((cutOff - day) / 30, 3))] += cents.value;
    }
    return figures;
}

std::map<std::string, std::int64_t> ReadReportColumn(const std::string& csv, const std::string& code,
                                                     const std::string& amount) {
    std::istringstream text(csv);
    CsvReader reader(text);
    std::map<std::string, std::int64_t> sums;
    std::size_t codeAt = 0, amountAt = 0;
    for (bool header = true; reader.Next(); header = false) {
        const auto cells = reader.cells();
        for (std::size_t i = 0; header && i < cells.size(); ++i) {
            if (cells[i] == code) codeAt = i;
            if (cells[i] == amount) amountAt = i;
        }
        if (!header) sums[std::string(cells[codeAt])] += std::llround(ToDouble(cells[amountAt]) * 100);
    }
    return sums;
}

}  // namespace qor::bench
