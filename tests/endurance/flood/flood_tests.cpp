#include "tests/endurance/flood/Flood.h"
#include "tests/support/RunLength.h"
#include "tests/support/win/HostLog.h"

#include <gtest/gtest.h>

#include <iostream>

// Messages of every number, with arguments taken blindly, half of them sent and half of them posted. Whatever comes,
// the control lives, its caret stands in its text, nothing but typing changes the text and nothing is logged. One
// message of each number; SCRIV_FULL=1 makes it sixteen: 1,048,576.

namespace {

using flood::Message;

constexpr UINT numbers = 0x10000;
constexpr int batch = 16;
constexpr int restoreEvery = 64;  // batches

class Flooding {
public:
    /// Sixteen messages. @return what is wrong afterwards, empty when nothing is
    std::string Batch(int first)
    {
        std::string fault;
        for (int i = first; i < first + batch && fault.empty(); ++i)
            fault = One(MessageOf(i), i);
        m_target.Settle();
        if (fault.empty())
            fault = m_target.Fault();
        return fault.empty() ? fault : fault + ", at or before " + Shown(MessageOf(first + batch - 1));
    }
    void Restore() { m_target.Restore(); }

    int sent = 0;
    int posted = 0;
    int leftOut = 0;

private:
    /// All patterns of a number follow each other; in the short run each number has one of them.
    [[nodiscard]] static Message MessageOf(int i)
    {
        if (IsFullRun())
            return flood::Pattern(static_cast<UINT>(i / flood::patternCount), i % flood::patternCount);
        return flood::Pattern(static_cast<UINT>(i), (i * 7 + i / batch) % flood::patternCount);
    }
    std::string One(const Message& message, int i)
    {
        const bool post = i % 2 != 0;
        if (flood::WhyLeftOut(message.id) || (post && flood::IsCalledWhenPosted(message))) {
            ++leftOut;
            return {};
        }
        if (post) {
            ++posted;
            m_target.Post(message);
            return {};
        }
        ++sent;
        m_target.Send(message);
        const std::string fault = m_target.Fault();
        return fault.empty() ? fault : fault + " behind " + Shown(message);
    }

    flood::Target m_target;
};

}  // namespace

TEST(Flood, MessagesOfEveryNumberLeaveTheControlWhole)
{
    const HostLog log;
    const int all = static_cast<int>(numbers) * (IsFullRun() ? flood::patternCount : 1);
    Flooding flooding;
    for (int first = 0; first < all; first += batch) {
        ASSERT_EQ(flooding.Batch(first), "");
        if (first / batch % restoreEvery == 0)
            flooding.Restore();
    }
    std::cout << flooding.sent << " sent, " << flooding.posted << " posted, " << flooding.leftOut << " left out\n";
    EXPECT_EQ(flooding.sent + flooding.posted + flooding.leftOut, all);
    EXPECT_EQ(log.News(), "");
}
