// Memory that runs out: in each scene each request for memory that the library makes fails, once or from then on.

#include "tests/failure/CrashNote.h"
#include "tests/failure/SceneTest.h"

#include <thread>

namespace {

class MemoryFailure : public SceneTest {
protected:
    void PlayAll(Course& course, Fault::HowLong howLong)
    {
        constexpr int mostInASlice = 2;
        const int step = StepFor(course.memoryRequests, mostInASlice);
        int n = 0;
        while (!HasFailure() && PlayFailing(course, nullptr, n, howLong, true))
            n += step;
    }
};

TEST_P(MemoryFailure, LosesNothing)
{
    Course course = PlayWell();
    if (course.memoryRequests == 0)
        return;
    PlayAll(course, Fault::HowLong::once);
    PlayAll(course, Fault::HowLong::fromThenOn);
}

// The runtime under the library keeps some of its own for each thread, and gets it when it is first needed: here with
// nothing left.
TEST(MemoryOfANewThread, RunsOutBeforeTheLibraryHasDoneAnythingInIt)
{
    Stage stage;
    for (int n = 0; n < 40; ++n) {
        const std::string what = "on a new thread: memory fails from call " + std::to_string(n) + " on";
        const CrashNote note(what.c_str());
        std::thread([n] {
            const ControlHost host;
            edCreateParams params{};
            params.parent = host.Window();
            HWND made = nullptr;
            {
                const Fault fault(nullptr, n, Fault::HowLong::fromThenOn);
                made = edCreateCtrl(&params);
                edLoadText(made, L"one\ntwo", 1);
                edInsertText(made, L"three");
            }
            EXPECT_TRUE(!made || edGetHWND(made) == made);
            edDestroyCtrl(made);
        }).join();
    }
}

INSTANTIATE_TEST_SUITE_P(Scene, MemoryFailure, testing::ValuesIn(AllPlays()),
                         [](const auto& info) { return info.param.Name(); });

}  // namespace
