// What is made of many measurements. Where there is none, the result is no number (NaN).
#pragma once

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace bench {

using Values = std::vector<double>;

inline double median(Values values)
{
    if (values.empty())
        return std::nan("");
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

inline double least(const Values& values)
{
    return values.empty() ? std::nan("") : *std::min_element(values.begin(), values.end());
}

// The median of what each round shows, so that a machine that is busy for a while slows both sides of a ratio.
inline double ratio(const Values& times, const Values& others)
{
    Values ratios;
    for (std::size_t i = 0; i < std::min(times.size(), others.size()); ++i)
        ratios.push_back(times[i] / others[i]);
    return median(ratios);
}

// Of those that are numbers.
inline double geometricMean(const Values& values)
{
    double sum = 0;
    double n = 0;
    for (const double value : values) {
        if (std::isnan(value))
            continue;
        sum += std::log(value);
        ++n;
    }
    return n > 0 ? std::exp(sum / n) : std::nan("");
}

// The exponent with which the times grow: the slope of the line through log(size) and log(time).
inline double growth(const std::vector<std::pair<double, double>>& sizesAndTimes)
{
    const double n = static_cast<double>(sizesAndTimes.size());
    double sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
    for (const auto& [size, time] : sizesAndTimes) {
        const double x = std::log(size);
        const double y = std::log(time);
        sumX += x;
        sumY += y;
        sumXX += x * x;
        sumXY += x * y;
    }
    return n > 1 ? (n * sumXY - sumX * sumY) / (n * sumXX - sumX * sumX) : std::nan("");
}

} // namespace bench
