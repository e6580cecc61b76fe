// SPDX-License-Identifier: MIT
#include "panels/common/link_figures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <vector>

namespace zor {

namespace {

using std::numbers::pi;

Keying keyed(double rate, double deviation) {
    return {Keying::Kind::Frequency, rate, deviation};
}

/// The share of power beyond a distance, out of a long stretch of random data: the signal itself, its phase
/// bit by bit, and its Fourier sums. Knows nothing of the closed form.
class RandomSignal {
  public:
    explicit RandomSignal(double index) {
        std::mt19937 random(20); // NOLINT: the same data each time
        double phase = 0;
        for (std::size_t bit = 0; bit < bits; ++bit) {
            double step = ((random() & 1U) != 0 ? 1 : -1) * pi * index / samples;
            for (std::size_t sample = 0; sample < samples; ++sample) {
                phase += step;
                signal.emplace_back(std::cos(phase), std::sin(phase));
            }
        }
        // A soft edge, so that the ends of the stretch do not ring.
        for (std::size_t at = 0; at < signal.size(); ++at) {
            double x = static_cast<double>(at) / static_cast<double>(signal.size());
            signal[at] *= 0.5 - 0.5 * std::cos(2 * pi * x);
        }
        transform(signal);
    }

    [[nodiscard]] double beyond(double distance) const {
        double all = 0;
        double outside = 0;
        for (std::size_t place = 0; place < signal.size(); ++place) {
            double power = std::norm(signal[place]);
            auto line = static_cast<double>(place < signal.size() / 2 ? place : signal.size() - place);
            all += power;
            outside += line / bits > distance ? power : 0;
        }
        return outside / all;
    }

  private:
    static void transform(std::vector<std::complex<double>>& values) {
        std::size_t count = values.size();
        if (count == 1) {
            return;
        }
        std::vector<std::complex<double>> even;
        std::vector<std::complex<double>> odd;
        for (std::size_t at = 0; at < count; at += 2) {
            even.push_back(values[at]);
            odd.push_back(values[at + 1]);
        }
        transform(even);
        transform(odd);
        for (std::size_t at = 0; at < count / 2; ++at) {
            auto turned =
                std::polar(1.0, -2 * pi * static_cast<double>(at) / static_cast<double>(count)) * odd[at];
            values[at] = even[at] + turned;
            values[at + count / 2] = even[at] - turned;
        }
    }

    static constexpr std::size_t bits = 2048;
    static constexpr std::size_t samples = 64;
    std::vector<std::complex<double>> signal;
};

} // namespace

TEST(LinkFigures, CarsonsRuleAddsTheDeviationAndHalfTheRateOnBothSides) {
    // 60 kHz to either side and 9.6 kbit/s: 2 x (60 + 4.8) kHz.
    EXPECT_DOUBLE_EQ(carsonBandwidth(keyed(9600, 60e3)), 129.6e3);
    // The broadcast example of the textbooks: 75 kHz and 15 kHz of sound, which is 30 kbit/s, give 180 kHz.
    EXPECT_DOUBLE_EQ(carsonBandwidth(keyed(30e3, 75e3)), 180e3);
    EXPECT_DOUBLE_EQ(carsonBandwidth({Keying::Kind::OnOff, 4800, 0}), 9600);
}

TEST(LinkFigures, TheModulationIndexIsTwiceTheDeviationOverTheRate) {
    EXPECT_DOUBLE_EQ(modulationIndex(keyed(100e3, 25e3)), 0.5);
    EXPECT_DOUBLE_EQ(modulationIndex(keyed(9600, 60e3)), 12.5);
}

TEST(LinkFigures, MinimumShiftKeyingHolds99PercentIn1Point18Rates) {
    // The figure of every textbook for an index of 1/2: 1.18 times the rate.
    EXPECT_NEAR(occupiedBandwidth(keyed(100e3, 25e3)) / 100e3, 1.18, 0.01);
}

TEST(LinkFigures, TheWholeSpectrumHasAPowerOfOne) {
    // Away from whole numbers, where part of the power is lines.
    for (double index : {0.35, 0.5, 0.7, 1.3, 1.5, 2.4, 4.5, 12.5}) {
        EXPECT_NEAR(powerBeyond(0, index), 1, 0.005) << index;
    }
}

TEST(LinkFigures, TheSpectrumIsThatOfRandomData) {
    for (double index : {0.5, 0.7, 1.0, 1.5, 2.0, 3.3, 6.0}) {
        RandomSignal signal(index);
        for (double beyond : {0.2, 0.5, 1.0, 2.0}) {
            double distance = index / 2 + beyond;
            double counted = signal.beyond(distance);
            EXPECT_NEAR(powerBeyond(distance, index), counted, 0.12 * counted + 0.0005)
                << index << " at " << distance;
        }
    }
}

TEST(LinkFigures, NinetyNinePercentLieInsideTheOccupiedBandwidth) {
    for (double index : {0.3, 0.5, 0.99, 1.0, 1.01, 1.5, 2.0, 2.5, 5.0, 12.5, 50.0, 478.3}) {
        Keying keying = keyed(10e3, index * 5e3);
        double half = occupiedBandwidth(keying) / 2 / keying.rate;
        EXPECT_NEAR(powerBeyond(half, index), 0.01, 0.0008) << index;
        if (index >= 1) {
            // Both tones are always in it.
            EXPECT_GT(half, index / 2);
        }
    }
}

TEST(LinkFigures, OnOffKeyingSpreadsOverTenRates) {
    // Half the power is the carrier, half a squared sinc: 98 % of that lie within the same edges.
    double half = occupiedBandwidth({Keying::Kind::OnOff, 1000, 0}) / 2000;
    double inside = 0;
    constexpr double step = 1e-4;
    for (double x = step / 2; x < half; x += step) {
        double sinc = std::sin(pi * x) / (pi * x);
        inside += 2 * sinc * sinc * step;
    }
    EXPECT_NEAR(inside, 0.98, 0.0005);
    EXPECT_NEAR(2 * half, 10.4, 0.1);
}

TEST(LinkFigures, SixteenBytesAt9600TakeThirteenMilliseconds) {
    EXPECT_NEAR(timeOnAir(16, 9600), 0.013333, 1e-6);
    EXPECT_DOUBLE_EQ(timeOnAir(0, 9600), 0);
}

TEST(LinkFigures, TwoCrystalsOf20PpmPutTheEnds34Point7KilohertzApartAt868) {
    EXPECT_NEAR(worstOffset(868.3e6, 20, 20), 34'732, 0.5);
    EXPECT_DOUBLE_EQ(worstOffset(315e6, 0, 0), 0);
    // 129.6 kHz of signal that may lie 34.732 kHz to either side.
    EXPECT_NEAR(neededBandwidth(keyed(9600, 60e3), 34'732), 199'064, 0.5);
}

TEST(LinkFigures, ABatteryOf230MilliampHoursGives100MicroampsFor2300Hours) {
    EXPECT_DOUBLE_EQ(*batteryHours(230, 0.1), 2300);
    EXPECT_FALSE(batteryHours(230, 0).has_value());
}

} // namespace zor
