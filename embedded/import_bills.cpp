#include "embedded/import_bills.h"

#include <algorithm>
#include <optional>

#include "embedded/import_kinds.h"
#include "embedded/import_standing_bill.h"

namespace qor {

namespace {

/// The columns of bills.csv.
struct BillColumns {
    explicit BillColumns(const ImportTable& t)
        : kind(t.Find("kind")),
          number(t.Find("number")),
          date(t.Find("date")),
          state(t.Find("state")),
          customer(t.Find("customer")),
          supplier(t.Find("supplier")),
          toParty(t.Find("to_party")),
          department(t.Find("department")),
          employee(t.Find("employee")),
          account(t.Find("account")),
          toAccount(t.Find("to_account")),
          amount(t.Find("amount")),
          settled(t.Find("settled")),
          discount(t.Find("discount")),
          dueDate(t.Find("due_date")),
          related(t.Find("related_bill")),
          biller(t.Find("biller")),
          invoice(t.Find("invoice")),
          voucher(t.Find("voucher")),
          explanation(t.Find("explanation")) {}

    ImportTable::Column kind, number, date, state, customer, supplier, toParty, department, employee, account,
        toAccount, amount, settled, discount, dueDate, related, biller, invoice, voucher, explanation;
};

std::string Named(BillKind kind) { return std::string(RowOf(kind).name); }

std::optional<BillKind> KindNamed(std::string_view word) {
    const auto found = std::ranges::find_if(
        kBillKinds, [&](const BillKindRow& row) { return row.prefix == word || row.name == word; });
    return found == std::end(kBillKinds) ? std::nullopt : std::optional(found->kind);
}

class BillsOfFile {
 public:
    BillsOfFile(ImportBooks& books, BillWriter& writer)
        : books_(books),
          writer_(writer),
          table_(books.Open(kBillsFile)),
          columns_(table_),
          standing_(books, table_),
          relate_(books.database, "UPDATE t_Bill SET FRelatedID=?2 WHERE FBillID=?1") {}

    void Import() {
        while (table_.Next()) {
            ReadRow();
        }
        books_.Close(kBillsFile, table_);
        for (const Related& related : related_) {
            Relate(related);
        }
    }

 private:
    using Column = ImportTable::Column;
    /// A bill that goes back to another one, which may stand behind it in the file.
    struct Related {
        std::size_t bill;
        std::string number, to;
    };

    void ReadRow() {
        const std::string number(table_.Word(columns_.number));
        if (number.empty()) return table_.MarkIncomplete();
        BookedBill* booked = books_.bills.Find(number);
        if (booked && booked->line > 0) {
            table_.MarkIncomplete();
            return table_.Mistake(columns_.number, Shown(number) + " stands on line " +
                                                       std::to_string(booked->line) + " already");
        }
        books_.uncertain = false;
        Bill bill = ReadBill(number);
        const bool stands = booked != nullptr;
        if (!stands) booked = &books_.bills.Add(number);
        bill.id = booked->id;
        booked->line = table_.line();
        booked->unsound = !IsCertain();
        KeepRelated(number, *booked);
        if (booked->unsound) return;
        if (stands) return standing_.BringUpToDate(*booked, bill);
        writer_.Write(bill);
        Book(bill, *booked);
    }

    bool IsCertain() const { return table_.RowIsSound() && !books_.uncertain; }

    static void Book(const Bill& bill, BookedBill& booked) {
        booked.kind = bill.kind;
        booked.state = bill.state;
        booked.day = bill.day;
        booked.customer = bill.customer;
        booked.supplier = bill.supplier;
        booked.toParty = bill.toParty;
        booked.amount = bill.amount;
        booked.settled = bill.settled;
        booked.discount = bill.discount;
        booked.open = OpenAtFirst(bill.kind, bill.amount, bill.settled);
    }

    Bill ReadBill(const std::string& number) {
        Bill bill;
        bill.number = number;
        const std::string_view kindWord = table_.Word(columns_.kind);
        const auto kind = KindNamed(kindWord);
        if (!kind && !kindWord.empty())
            table_.Mistake(columns_.kind, Shown(kindWord) +
                                              " is no kind of bill; write a sign such as XS or a "
                                              "name such as 销售单");
        bill.day = table_.Read(columns_.date, ReadDay);
        bill.state = ReadState();
        bill.department = ReadItem(books_, table_, columns_.department, item_class::kDepartment);
        bill.employee = ReadItem(books_, table_, columns_.employee, item_class::kEmployee);
        bill.account = ReadItem(books_, table_, columns_.account, item_class::kAccount);
        bill.toAccount = ReadItem(books_, table_, columns_.toAccount, item_class::kAccount);
        bill.amount = table_.Read(columns_.amount, ReadCents);
        bill.settled = table_.Read(columns_.settled, ReadCents);
        bill.discount = table_.Read(columns_.discount, ReadCents);
        bill.dueDay = table_.Read(columns_.dueDate, ReadDay);
        bill.biller = ReadBiller();
        bill.invoice = table_.Text(columns_.invoice);
        bill.voucher = table_.Text(columns_.voucher);
        bill.explanation = table_.Text(columns_.explanation);
        if (!kind) return bill;
        bill.kind = *kind;
        ReadParties(bill);
        if (IsCertain()) CheckSum(bill);
        if (IsCertain()) CheckAccounts(bill);
        return bill;
    }

    BillState ReadState() {
        const std::string_view word = table_.Word(columns_.state);
        const auto found = std::ranges::find(kStateWords, word);
        if (word.empty()) return BillState::Audited;
        if (found == std::end(kStateWords))
            table_.Mistake(columns_.state, Shown(word) + " is no state; write audited, not audited or void");
        return static_cast<BillState>(found - std::begin(kStateWords));
    }

    std::int64_t ReadBiller() {
        const std::int64_t user = table_.ReadWholeNumber(columns_.biller, 1, kLastUser);
        if (user != 0 && !books_.users.contains(user) && !books_.MayStandIn(kUsersFile.name))
            table_.Mistake(columns_.biller, "user " + std::to_string(user) + " is not in users.csv");
        return user;
    }

    /// Blank where the kind has no such thing, and not blank where it needs one.
    void Check(const Bill& bill, Column column, bool has, bool needed, const char* what) {
        const bool blank = table_.Word(column).empty();
        if (blank && needed) table_.Mistake(column, "is blank; a " + Named(bill.kind) + " has " + what);
        if (!blank && !has) table_.Mistake(column, "must be blank; a " + Named(bill.kind) + " has none");
    }

    void ReadParties(Bill& bill) {
        const BillKindRow& row = RowOf(bill.kind);
        const bool needed = !RulesOf(bill.kind).partyOptional;
        const bool hasCustomer = HasCustomer(bill.kind), hasSupplier = HasSupplier(bill.kind);
        Check(bill, columns_.customer, hasCustomer, hasCustomer && needed, "a customer");
        Check(bill, columns_.supplier, hasSupplier, hasSupplier && needed, "a supplier");
        Check(bill, columns_.toParty, row.target != 0, row.target != 0, "a party that takes the claim over");
        bill.customer = ReadItem(books_, table_, columns_.customer, item_class::kCustomer);
        bill.supplier = ReadItem(books_, table_, columns_.supplier, item_class::kSupplier);
        if (row.target == 0) return;
        bill.toParty = ReadItem(books_, table_, columns_.toParty,
                                row.received != 0 ? item_class::kCustomer : item_class::kSupplier);
        if (bill.toParty != 0 && bill.toParty == std::max(bill.customer, bill.supplier))
            table_.Mistake(columns_.toParty, "is the party that the claim comes from");
    }

    void CheckSum(const Bill& bill) {
        const KindRules rules = RulesOf(bill.kind);
        if (rules.negative && bill.amount > 0)
            table_.Mistake(columns_.amount, "must be negative; a " + Named(bill.kind) + " takes back");
        if (bill.kind == BillKind::BankTransfer && bill.amount < 0)
            table_.Mistake(columns_.amount, "must not be negative; swap the accounts");
        Check(bill, columns_.settled, MayBePaidAtOnce(bill.kind) || bill.settled == 0, false, "");
        Check(bill, columns_.discount, SettlesWithMoney(bill.kind) || bill.discount == 0, false, "");
        const bool beyond = bill.amount < 0 ? bill.settled < bill.amount || bill.settled > 0
                                            : bill.settled > bill.amount || bill.settled < 0;
        if (beyond)
            table_.Mistake(columns_.settled, "is not between 0 and the amount, " + CentsText(bill.amount));
        const bool withoutParty = rules.partyOptional && bill.customer == 0 && bill.supplier == 0;
        if (withoutParty && bill.settled != bill.amount)
            table_.Mistake(columns_.settled, "must be the amount, " + CentsText(bill.amount) +
                                                 ": without a party everything is paid at once");
        if (bill.dueDay != 0 && bill.dueDay < bill.day)
            table_.Mistake(columns_.dueDate, "lies before the bill's date, " + DayText(bill.day));
    }

    void CheckAccounts(const Bill& bill) {
        const bool atOnce = RaisesClaim(bill.kind);
        const bool moves = RowOf(bill.kind).cash != 0 || MayBePaidAtOnce(bill.kind);
        const bool needed = moves && (atOnce ? bill.settled : bill.amount) != 0;
        const bool transfer = bill.kind == BillKind::BankTransfer;
        Check(bill, columns_.account, moves, needed, "an account that its money moves on");
        Check(bill, columns_.toAccount, transfer, transfer, "an account that it moves to");
        if (transfer && bill.account == bill.toAccount && bill.account != 0)
            table_.Mistake(columns_.toAccount, "is the account that the money comes from");
    }

    void KeepRelated(const std::string& number, const BookedBill& booked) {
        const auto place = static_cast<std::size_t>(&booked - books_.bills.all().data());
        related_.push_back({place, number, std::string(table_.Word(columns_.related))});
    }

    void Relate(const Related& related) {
        BookedBill& bill = books_.bills.all()[related.bill];
        if (bill.unsound) return;
        const KindRules rules = RulesOf(bill.kind);
        const auto refuse = [&](const std::string& why) {
            table_.MistakeAt(bill.line, columns_.related, why);
        };
        std::int64_t to = 0;
        if (!related.to.empty()) {
            const BookedBill* other = books_.bills.Find(related.to);
            if (other ? other->unsound : table_.incomplete()) return;
            if (!other) return refuse(Shown(related.to) + " is neither in bills.csv nor in the account set");
            if (const std::string why = WhyNotRelated(bill, *other); !why.empty()) return refuse(why);
            to = other->id;
        } else if (rules.needsRelated) {
            return refuse("is blank; a " + Named(bill.kind) + " goes back to a " + Named(rules.related));
        }
        if (bill.stood) return standing_.CheckRelated(bill, to);
        if (to != 0) relate_.With(bill.id, to).Run();
    }

    std::string WhyNotRelated(const BookedBill& bill, const BookedBill& to) {
        const KindRules rules = RulesOf(bill.kind);
        if (rules.related == BillKind{})
            return "must be blank; a " + Named(bill.kind) + " goes back to no bill";
        if (to.kind != rules.related)
            return "is a " + Named(to.kind) + "; a " + Named(bill.kind) + " goes back to a " +
                   Named(rules.related);
        if (to.customer != bill.customer || to.supplier != bill.supplier) return "is a bill of another party";
        if (to.day > bill.day) return "is of a later day, " + DayText(to.day);
        if (to.state == BillState::Void && bill.state != BillState::Void) return "is void";
        return "";
    }

    ImportBooks& books_;
    BillWriter& writer_;
    ImportTable table_;
    BillColumns columns_;
    StandingBills standing_;
    Statement relate_;
    std::vector<Related> related_;
};

}  // namespace

void ImportBills(ImportBooks& books, BillWriter& writer) { BillsOfFile(books, writer).Import(); }

}  // namespace qor
