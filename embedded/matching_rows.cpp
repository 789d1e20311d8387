#include "embedded/matching_rows.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "embedded/goods_lines.h"
#include "embedded/matching_accounts.h"
#include "embedded/money.h"

namespace qor {

namespace {

enum SumSort : std::int32_t { kRow = 0, kPartyTotal = 1, kGrandTotal = 2 };

constexpr PartySide kCustomer = PartySide::Customer, kSupplier = PartySide::Supplier;

constexpr const char* kGoodsFields[] = {"FItemName", "FItemNumber",   "FModel",   "FUnitName", "FQty",
                                        "FPrice",    "FShowUnitName", "FShowQty", "FShowPrice"};

class MatchingWriter {
 public:
    MatchingWriter(AccountSet& set, const Dictionary& dictionary, const MatchedAccounts& accounts)
        : accounts_(accounts),
          filter_(dictionary),
          firstDay_(filter_.Day("BDate")),
          items_(set, filter_.WantsShortNumbers()) {
        if (filter_.Flag("ChkShowDetail")) {
            goods_.emplace(set, filter_.WantsShortNumbers(), BillsOf(accounts.shown()));
        }
        std::vector<std::string> fields = {"FDate", "FBillTypeName", "FBillNo", "FVchNumber"};
        if (goods_) fields.insert(fields.end(), std::begin(kGoodsFields), std::end(kGoodsFields));
        for (const char* field :
             {"FExplanation", "FRecPreAmount", "FRecAmount", "FRecRealAmount", "FPayPreAmount", "FPayAmount",
              "FPayRealAmount", "FRecBalanceAmount", "FPayBalanceAmount", "FDeptName", "FEmpName",
              "FCustNumber", "FCustName", "FSupplyNumber", "FSupplyName", "FSumSort"}) {
            fields.emplace_back(field);
        }
        set_ = MakeRef<ColumnarRecordSet>(std::move(fields));
        set_->Reserve(RowCount());
    }

    void Write(const MatchedAccount& account) {
        account_ = &account;
        balance_ = account.opening;
        AddSummary(firstDay_, "期初余额", Heading(), {}, kRow);
        for (const MatchedBill& bill : account.bills) {
            WriteBill(bill);
        }
        AddSummary(std::nullopt, "小计", "", account.period, kPartyTotal);
        all_ += account.period;
        allBalance_ += balance_;
        ++written_;
    }

    Ref<RecordSet> Finish() {
        account_ = nullptr;
        balance_ = allBalance_;
        if (written_ > 1) AddSummary(std::nullopt, "合计", "", all_, kGrandTotal);
        return set_;
    }

 private:
    struct Texts {
        Value number, voucher, explanation;
    };

    /// Of all accounts, with opening and totals.
    std::size_t RowCount() const {
        std::size_t rows = 1;
        for (const MatchedAccount& account : accounts_.shown()) {
            rows += 2 + account.bills.size();
            if (!goods_) continue;
            for (const MatchedBill& bill : account.bills) {
                rows += std::max<std::size_t>(goods_->Of(bill.bill).size(), 1) - 1;
            }
        }
        return rows;
    }

    Texts TextsOf(const MatchedBill& bill) {
        RowTexts::Reader texts = accounts_.TextsOf(bill);
        Value number = texts.Next(), voucher = texts_.Share(texts.Next());
        return {std::move(number), std::move(voucher), texts_.Share(texts.Next())};
    }

    std::string Heading() {
        const ItemTexts::Texts& customer = items_.Of(account_->customer);
        const ItemTexts::Texts& supplier = items_.Of(account_->supplier);
        return customer.number.text() + " " + customer.name.text() + "，" + supplier.number.text() + " " +
               supplier.name.text();
    }

    void WriteBill(const MatchedBill& bill) {
        const auto lines = goods_ ? goods_->Of(bill.bill) : std::span<const GoodsLineRow>{};
        const PartySide side = SignsOf(bill.kind, kCustomer).raised != 0 ? kCustomer : kSupplier;
        const Texts texts = TextsOf(bill);
        MatchedSums rest = bill.sums;
        for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
            MatchedSums part;
            part[side].raised = lines[i].amount;
            rest[side].raised -= lines[i].amount;
            AddBill(bill, texts, part, &lines[i]);
        }
        AddBill(bill, texts, rest, lines.empty() ? nullptr : &lines.back());
    }

    void AddBill(const MatchedBill& bill, const Texts& texts, const MatchedSums& sums,
                 const GoodsLineRow* goods) {
        balance_ += sums;
        column_ = 0;
        Add(Date{static_cast<double>(bill.day)});
        Add(texts_.Share(RowOf(bill.kind).name));
        Add(texts.number);
        Add(texts.voucher);
        AddGoods(goods);
        Add(texts.explanation);
        AddAmounts(sums);
        Add(items_.Of(bill.department).name);
        Add(items_.Of(bill.employee).name);
        AddParties(kRow);
    }

    void AddSummary(std::optional<std::int64_t> day, const char* kind, Value explanation,
                    const MatchedSums& sums, SumSort sort) {
        column_ = 0;
        Add(day ? Value(Date{static_cast<double>(*day)}) : Value::Null());
        Add(kind);
        AddBlanks(2);
        AddGoods(nullptr);
        Add(std::move(explanation));
        AddAmounts(sums);
        AddBlanks(2);
        AddParties(sort);
    }

    void AddGoods(const GoodsLineRow* goods) {
        if (!goods_) return;
        Add(goods ? goods->goods->item->name : blank_);
        Add(goods ? goods->goods->item->number : blank_);
        Add(goods ? goods->goods->model : blank_);
        Add(goods ? goods->goods->unit->name : blank_);
        Add(goods ? goods->Quantity() : Value::Null());
        Add(goods ? goods->Price() : Value::Null());
        Add(goods ? goods->shownUnit->name : blank_);
        Add(goods ? goods->ShownQuantity() : Value::Null());
        Add(goods ? goods->ShownPrice() : Value::Null());
    }

    void AddAmounts(const MatchedSums& sums) {
        for (const PartySide side : {kCustomer, kSupplier}) {
            Add(Yuan(sums[side].advance));
            Add(Yuan(sums[side].raised));
            Add(Yuan(sums[side].settled));
        }
        Add(Yuan(balance_[kCustomer].Balance()));
        Add(Yuan(balance_[kSupplier].Balance()));
    }

    void AddParties(SumSort sort) {
        for (const std::int64_t id : {account_ ? account_->customer : 0, account_ ? account_->supplier : 0}) {
            Add(items_.Of(id).number);
            Add(items_.Of(id).name);
        }
        Add(std::int32_t{sort});
    }

    void AddBlanks(int count) {
        for (int i = 0; i < count; ++i) {
            Add(blank_);
        }
    }
    void Add(Value value) { set_->AddCell(column_++, std::move(value)); }

    const MatchedAccounts& accounts_;
    const ReportFilter filter_;
    const std::optional<std::int64_t> firstDay_;
    ItemTexts items_;
    SharedTexts texts_;
    std::optional<GoodsLines> goods_;
    Ref<ColumnarRecordSet> set_;
    const Value blank_ = "";
    std::size_t column_ = 0;
    const MatchedAccount* account_ = nullptr;  // whose rows are written; nothing in the last total
    std::size_t written_ = 0;
    MatchedSums balance_, all_, allBalance_;
};

}  // namespace

Ref<RecordSet> MatchingBalance(AccountSet& set, const Dictionary& filter) {
    const MatchedAccounts accounts(set, filter);
    MatchingWriter writer(set, filter, accounts);
    for (const MatchedAccount& account : accounts.shown()) {
        writer.Write(account);
    }
    return writer.Finish();
}

}  // namespace qor
