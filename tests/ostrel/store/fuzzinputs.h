// Random inputs that are the same in each run. OSTREL_TEST_INPUTS=N takes N times as many.
#ifndef OSTREL_TESTS_OSTREL_STORE_FUZZINPUTS_H
#define OSTREL_TESTS_OSTREL_STORE_FUZZINPUTS_H

#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

class FuzzInputs {
public:
    explicit FuzzInputs(uint64_t seed) : m_random(seed) {}

    static int scaled(int count) {
        const char* times = std::getenv("OSTREL_TEST_INPUTS");
        return times ? count * std::atoi(times) : count;
    }

    uint64_t operator()() { return m_random(); }
    size_t below(size_t limit) { return m_random() % limit; }

    // Changes `size` bytes: a bit, a byte, a word, or a run of them.
    void spoil(char* bytes, size_t size) {
        static constexpr uint64_t telling[] = {0,          1,         INT16_MAX,  UINT16_MAX, INT32_MAX,
                                               UINT32_MAX, INT64_MAX, UINT64_MAX, 0x8000,     0x80000000};
        const size_t at = below(size);
        switch (below(5)) {
            case 0:
                bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
                break;
            case 1:
                bytes[at] = static_cast<char>(m_random());
                break;
            case 2:
                put(bytes, size, at & ~size_t{7}, m_random());
                break;
            case 3:
                put(bytes, size, at & ~size_t{7}, telling[below(std::size(telling))]);
                break;
            default:
                for (size_t i = at; i < std::min(size, at + 64); ++i)
                    bytes[i] = static_cast<char>(m_random());
        }
    }

private:
    static void put(char* bytes, size_t size, size_t at, uint64_t word) {
        for (size_t i = 0; i < sizeof word && at + i < size; ++i)
            bytes[at + i] = static_cast<char>(word >> (8 * i));
    }

    std::mt19937_64 m_random;
};

#endif
