#pragma once

class QCoreApplication;

// The fuzzer process's one QCoreApplication, made on first use and kept until exit. Call it from
// LLVMFuzzerInitialize when the code under test posts events, runs coroutines or reads files.
QCoreApplication& fuzzApplication();
