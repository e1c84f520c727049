// What a caller gives to NVR_CHOOSETRANSPOSINGINSTRUMENTS reaches the host function, whatever it is. This
// program is built without optimisation.

#include "Shared/NotaveraAPI/HostFunctions.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace {

std::string g_given;

std::intptr_t TakeNone() {
    g_given = "none";
    return -5;
}

std::intptr_t TakeThree(std::intptr_t a, std::intptr_t b, std::intptr_t c) {
    g_given = testing::PrintToString(std::vector<std::intptr_t>{a, b, c});
    return a + b + c;
}

std::intptr_t TakeEight(std::intptr_t a, std::intptr_t b, std::intptr_t c, std::intptr_t d, std::intptr_t e,
                        std::intptr_t f, std::intptr_t g, std::intptr_t h) {
    g_given = testing::PrintToString(std::vector<std::intptr_t>{a, b, c, d, e, f, g, h});
    return h;
}

std::intptr_t TakeThirteen(std::intptr_t a, std::intptr_t b, std::intptr_t c, std::intptr_t d,
                           std::intptr_t e, std::intptr_t f, std::intptr_t g, std::intptr_t h,
                           std::intptr_t i, std::intptr_t j, std::intptr_t k, std::intptr_t l,
                           std::intptr_t m) {
    g_given = testing::PrintToString(std::vector<std::intptr_t>{a, b, c, d, e, f, g, h, i, j, k, l, m});
    return m;
}

double TakeDoubles(double a, std::intptr_t b, double c, double d, double e, double f, double g, double h,
                   double i, double j) {
    g_given = testing::PrintToString(std::vector<double>{a, static_cast<double>(b), c, d, e, f, g, h, i, j});
    return a + j;
}

// The host function's own type, for functions of any type.
template <class Function>
NvrChooseTransposingInstruments AsHostFunction(Function* function) {
    return reinterpret_cast<NvrChooseTransposingInstruments>(reinterpret_cast<void (*)()>(function));
}

// Calls the exported function as one of the type of `function`, which the host has there.
template <class Result, class... Given>
std::string Called(Result (*function)(Given...), std::type_identity_t<Given>... given) {
    NvrHostFunctionTable.ChooseTransposingInstruments = AsHostFunction(function);
    auto* const exported = reinterpret_cast<Result (*)(Given...)>(
        reinterpret_cast<void (*)()>(&NVR_CHOOSETRANSPOSINGINSTRUMENTS));
    g_given.clear();
    const Result result = exported(given...);
    NvrHostFunctionTable.ChooseTransposingInstruments = nullptr;
    return g_given + " gives " + testing::PrintToString(result);
}

TEST(PassingOn, LeavesArgumentsAndResultAsTheyAre) {
    EXPECT_EQ(Called(TakeNone), "none gives -5");
    EXPECT_EQ(Called(TakeThree, 1, -2, 3), "{ 1, -2, 3 } gives 2");
    EXPECT_EQ(Called(TakeEight, 1, 2, 3, 4, 5, 6, 7, -8), "{ 1, 2, 3, 4, 5, 6, 7, -8 } gives -8");
    EXPECT_EQ(Called(TakeThirteen, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13),
              "{ 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13 } gives 13");
    EXPECT_EQ(Called(TakeDoubles, 0.5, 2, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5),
              "{ 0.5, 2, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10.5 } gives 11");
}

TEST(PassingOn, GivesZeroWhereNothingIsBound) {
    ASSERT_EQ(Nvr::HostFunctions().ChooseTransposingInstruments, nullptr);
    EXPECT_EQ(NVR_CHOOSETRANSPOSINGINSTRUMENTS(1, 2, 3, 4, 5, 6, 7, 8), 0);
}

} // namespace
