// Records of any class with arbitrary values, made through their tables.
#pragma once

#include "core/records/RecordType.h"

// Gives every field that the class writes today a value of RapidCheck's choice, and every list some entries;
// what must hold among the values of a record (a power is a percentage, a plane has a number of its own)
// holds.
void FillArbitrarily(const hx::RecordType& type, void* record);

// Every number that is written becomes what its text says.
void RoundAsWritten(const hx::RecordType& type, void* record);
