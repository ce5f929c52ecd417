#pragma once

class QCoreApplication;

// The fuzzer process's one QCoreApplication, made on first use and kept until exit. Call it from
// LLVMFuzzerInitialize when the code under test posts events, runs coroutines or reads files.
QCoreApplication& fuzzApplication();

// Ends the run as a finding when a property the target asserts does not hold; libFuzzer keeps the input.
void fuzzCheck(bool holds);
