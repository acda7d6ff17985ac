// Operations on several threads at once share nothing they write: the mixed
// operations of the soak test, run on eight threads at once through one
// interface object, must each give the answer they gave alone on one thread. CI runs this program under
// ThreadSanitizer as well.
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "MixedOperations.h"

namespace {

TEST(ThreadsTest, OperationsOnEightThreadsAnswerAsAlone)
{
    constexpr size_t kThreads = 8;
    constexpr int kRounds = 3;
    ScopedBundle bundle(QZC_BUNDLE_DIR);
    TempDir dir;
    QZICsvConvXML library;
    const std::vector<MixedOperation> operations = MixedOperations(dir, library);
    std::vector<std::string> alone;
    for (const MixedOperation& operation : operations)
        alone.push_back(operation.run());

    // Fresh threads every round, so each starts without any per-thread state.
    for (int round = 0; round < kRounds; ++round) {
        std::vector<std::vector<std::string>> answers(kThreads, std::vector<std::string>(operations.size()));
        std::vector<std::thread> threads;
        for (size_t t = 0; t < kThreads; ++t) {
            threads.emplace_back([&, t] {
                // Every thread runs the whole mix from its own starting point,
                // so different kinds of operation overlap.
                for (size_t i = 0; i < operations.size(); ++i) {
                    const size_t pick = (i + t * operations.size() / kThreads) % operations.size();
                    answers[t][pick] = operations[pick].run();
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        for (size_t t = 0; t < kThreads; ++t) {
            for (size_t i = 0; i < operations.size(); ++i)
                EXPECT_EQ(answers[t][i], alone[i]) << operations[i].name << ", thread " << t << ", round " << round;
        }
    }
}

}  // namespace
