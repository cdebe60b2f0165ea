// Memory that runs out: in each scene each request for memory that the library makes fails, once or from then on.

#include "tests/failure/CrashNote.h"
#include "tests/failure/SceneTest.h"

#include <thread>

namespace {

class MemoryFailure : public SceneTest {
protected:
    void PlayAll(Fault::HowLong howLong)
    {
        constexpr int mostInASlice = 3;
        Course course = PlayWell();
        const int all = course.memoryRequests;
        for (int n = 0; n < all && (!HasFailure() || std::getenv("SCRIV_ALL")); n += StepFor(all, mostInASlice))
            PlayFailing(course, nullptr, n, howLong, true);
    }
};

TEST_P(MemoryFailure, OnceLosesNothing)
{
    PlayAll(Fault::HowLong::once);
}

TEST_P(MemoryFailure, FromThenOnLosesNothing)
{
    PlayAll(Fault::HowLong::fromThenOn);
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

INSTANTIATE_TEST_SUITE_P(Scene, MemoryFailure, testing::ValuesIn(AllScenes()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
