#pragma once

#include <cassert>
#include <cstdint>
#include <random>
#include <span>

namespace mkdb {

/// A stream of chance that is the same on every machine: the engine is fixed by the standard, and
/// the mapping to ranges is our own, because the library's distributions differ between makers.
class Random {
  public:
    /// Streams of one seed are independent of each other.
    Random(std::uint64_t seed, std::uint64_t stream)
        : engine_(mix(seed) ^ mix(stream + 0x51ed270b)) {}

    /// 0 to bound - 1, all alike. @param bound above 0
    int below(int bound) {
        assert(bound > 0);
        const auto range = static_cast<std::uint64_t>(bound);
        const std::uint64_t limit = UINT64_MAX - UINT64_MAX % range;
        std::uint64_t drawn = engine_();
        while (drawn >= limit)
            drawn = engine_();
        return static_cast<int>(drawn % range);
    }
    /// Both ends included.
    int between(int low, int high) { return low + below(high - low + 1); }
    bool percent(int chance) { return below(100) < chance; }

    template <class List>
    const auto& pick(const List& list) {
        return list[below(static_cast<int>(list.size()))];
    }

    /// Index of a weight, drawn as often as its share. @param weights not all 0
    int weighted(std::span<const int> weights) {
        int sum = 0;
        for (const int weight : weights)
            sum += weight;
        int rest = below(sum);
        const int last = static_cast<int>(weights.size()) - 1;
        int index = 0;
        while (index < last && rest >= weights[index])
            rest -= weights[index++];
        return index;
    }

    template <class List>
    void shuffle(List& list) {
        for (int end = static_cast<int>(list.size()); end > 1; --end)
            std::swap(list[end - 1], list[below(end)]);
    }

  private:
    static std::uint64_t mix(std::uint64_t value) {
        value += 0x9e3779b97f4a7c15;
        value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9;
        value = (value ^ (value >> 27)) * 0x94d049bb133111eb;
        return value ^ (value >> 31);
    }

    std::mt19937_64 engine_;
};

} // namespace mkdb
