#pragma once

#include "tests/failure/Fault.h"
#include "tests/failure/States.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// Plays a scene with a failure at one point after the other, and looks at what is left after each.
class SceneTest : public testing::TestWithParam<Play> {
protected:
    /// What a scene leaves when nothing fails, and how it began.
    struct Course {
        std::wstring loaded;  ///< what undo leads back to
        std::wstring before;  ///< after the preparation
        std::wstring after;
        std::int64_t answer;
        std::string fileBefore;
        std::string fileAfter;
        int memoryRequests;
        std::vector<std::pair<const Import*, int>> calls;  ///< of each function that can fail
        std::string failing;                               ///< the function that fails now; empty: memory
    };

    static void SetUpTestSuite();
    static void TearDownTestSuite();

    [[nodiscard]] static const Scene& TheScene() { return GetParam().scene; }
    [[nodiscard]] Course PlayWell();
    /// @param mustReport  true: what was not done is on record, once when the failure came once
    /// @return false when so many calls are not made, and nothing failed
    bool PlayFailing(Course& course, const Import* function, int n, Fault::HowLong howLong, bool mustReport);

    /// Of `all` points, every how manieth is played: all of them in the full run.
    [[nodiscard]] static int StepFor(int all, int mostInASlice);

    inline static std::unique_ptr<Stage> stage;
    inline static int points = 0;   ///< that have been played, of all scenes
    inline static int inexact = 0;  ///< of them, those that undo did not lead back from exactly

private:
    void Prepare(Course& course, bool anew);
    void Look(const Course& course, std::int64_t answer, Fault::HowLong howLong, bool mustReport);
    void LookAtAnswer(const Course& course, std::int64_t answer);
    void LookAtRecords(bool allDone, bool refused, Fault::HowLong howLong, bool mustReport);
    void LookAtText(const Course& course, const std::wstring& text);
    void LookAtFile(const Course& course);
    std::wstring Undo();
    void LookAtUndo(const Course& course, const std::wstring& text);
    void GoOnWorking();
};
