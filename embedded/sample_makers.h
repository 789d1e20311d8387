// How the sample firm's bills come about, one routine for each sort. Each writes a bill of the kind and what
// follows from it; it answers false and writes nothing where no such bill is possible today.
#pragma once

#include "embedded/sample_desk.h"

namespace qor {

// Goods.
bool MakeGoodsBill(SampleDesk& desk, BillKind kind);   // sales, purchases and their returns
bool MakeGoodsMoved(SampleDesk& desk, BillKind kind);  // goods on consignment; goods that came without a bill
bool MakeMovedBilled(SampleDesk& desk, BillKind kind);  // a consignment is sold, an estimate is taken back

// Income, expenses, other receivables and payables, by class.
bool MakeClassBill(SampleDesk& desk, BillKind kind);

// Money.
bool MakeSettlingBill(SampleDesk& desk, BillKind kind);  // receipts and payments
bool MakeAdvance(SampleDesk& desk, BillKind kind);
bool MakeRebate(SampleDesk& desk, BillKind kind);
bool MakeBankTransfer(SampleDesk& desk, BillKind kind);
void MakeOpeningBills(SampleDesk& desk, BillKind kind, std::int64_t most);

// Write-offs: no money moves.
bool MakeUseOfAdvance(SampleDesk& desk, BillKind kind);
bool MakeReceivableToPayable(SampleDesk& desk, BillKind kind);
bool MakeTransfer(SampleDesk& desk, BillKind kind);

}  // namespace qor
