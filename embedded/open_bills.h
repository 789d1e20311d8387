// The open receivables or payables of the sample firm while its bills are made: which come up for payment,
// and what a party still owes.
#pragma once

#include <cstdint>
#include <queue>
#include <vector>

#include "embedded/sample_firm.h"

namespace qor {

struct OpenBill {
    std::int64_t bill;
    std::size_t party;  // its place among the customers or the suppliers
    std::int64_t open;  // cents; negative for what the firm owes back
};

class OpenBills {
 public:
    explicit OpenBills(std::vector<SampleFirm::Party>& parties) : parties_(parties) {}

    /// A bill that is to come up for payment on `day`.
    void Add(OpenBill bill, std::int64_t day) {
        if (bill.open == 0) return;
        parties_[bill.party].open.push_back(bills_.size());
        if (bill.open > 0) due_.push({day, bills_.size()});
        bills_.push_back(bill);
    }

    /// A bill whose day has come, or nothing. It is not handed out again unless `PutOff` says so.
    OpenBill* NextDue(std::int64_t today) {
        while (!due_.empty() && due_.top().day <= today) {
            OpenBill& bill = bills_[due_.top().index];
            due_.pop();
            if (bill.open > 0) return &bill;
        }
        return nullptr;
    }
    void PutOff(const OpenBill& bill, std::int64_t day) {
        due_.push({day, static_cast<std::size_t>(&bill - bills_.data())});
    }

    /// The party's open bills, oldest first. Valid until the next Add.
    std::vector<OpenBill*> Of(std::size_t party) {
        std::vector<std::size_t>& indices = parties_[party].open;
        std::erase_if(indices, [&](std::size_t index) { return bills_[index].open == 0; });
        std::vector<OpenBill*> open;
        for (const std::size_t index : indices) {
            open.push_back(&bills_[index]);
        }
        return open;
    }
    /// The oldest bill on which the party owes, or nothing.
    OpenBill* OldestOwed(std::size_t party) {
        for (OpenBill* bill : Of(party)) {
            if (bill->open > 0) return bill;
        }
        return nullptr;
    }

 private:
    struct Due {
        std::int64_t day;
        std::size_t index;
        bool operator<(const Due& other) const {
            return day != other.day ? day > other.day : index > other.index;  // the earliest comes up first
        }
    };

    std::vector<SampleFirm::Party>& parties_;
    std::vector<OpenBill> bills_;
    std::priority_queue<Due> due_;
};

}  // namespace qor
