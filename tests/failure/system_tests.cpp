// System functions that fail: in each scene each call that the library makes into the system fails, once or from then on.

#include "tests/failure/FailingFunctions.h"
#include "tests/failure/SceneTest.h"

#include <set>

namespace {

class SystemFailure : public SceneTest {
protected:
    /// Goes through the calls of all functions as if they stood in one row. What fails for good does so from its first.
    void PlayAll(Fault::HowLong howLong)
    {
        constexpr int mostInASlice = 2;
        const bool once = howLong == Fault::HowLong::once;
        Course course = PlayWell();
        int all = 0;
        std::erase_if(course.calls, [](const auto& row) { return row.first->how->givesMemory; });
        for (const auto& [function, calls] : course.calls)
            all += once ? calls : 1;
        const int step = StepFor(all, mostInASlice);
        int at = 0;
        for (const auto& [function, calls] : course.calls)
            for (int n = 0; n < (once ? calls : 1) && !HasFailure(); ++n, ++at)
                if (at % step == 0 && !PlayFailing(course, function, n, howLong, false))
                    break;
    }
};

TEST_P(SystemFailure, OnceLosesNothing)
{
    PlayAll(Fault::HowLong::once);
}

TEST_P(SystemFailure, FromThenOnLosesNothing)
{
    PlayAll(Fault::HowLong::fromThenOn);
}

INSTANTIATE_TEST_SUITE_P(Scene, SystemFailure, testing::ValuesIn(PlainPlays()),
                         [](const auto& info) { return info.param.Name(); });

std::set<std::string> ImportsOfTheLibrary()
{
    Imports imports(::GetModuleHandleW(L"scrivctl3.dll"));
    std::set<std::string> names;
    for (const Import& import : imports.All())
        names.insert(import.name);
    return names;
}

TEST(FunctionsOfTheSystem, AreEachInOneOfTheTwoLists)
{
    for (const std::string& name : ImportsOfTheLibrary())
        EXPECT_EQ((FindFailingFunction(name) != nullptr) + IsLeftAlone(name), 1) << name;
}

TEST(FunctionsOfTheSystem, AreNotListedWithoutBeingCalled)
{
    const std::set<std::string> names = ImportsOfTheLibrary();
    for (const FailingFunction& row : FailingFunctions())
        EXPECT_TRUE(names.contains(row.name)) << row.name;
    for (const NeverFailing& row : NeverFailingFunctions())
        EXPECT_TRUE(names.contains(row.name)) << row.name;
}

}  // namespace
