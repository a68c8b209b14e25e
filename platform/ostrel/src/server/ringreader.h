// The server's reading of shared rings, each entry once. Clients of a former generation of the store write to the ring
// of that one until they have moved, so there may be several.
#ifndef OSTREL_SERVER_RINGREADER_H
#define OSTREL_SERVER_RINGREADER_H

#include <algorithm>
#include <map>
#include <utility>

#include "ground/monotonic.h"
#include "store/sharedring.h"

template <class Ring>
class RingReader {
public:
    // Calls entry(number, words) for each entry that came since the last time, and missing(count) for those between
    // that came too fast to be kept. The number up to which the ring was read.
    template <class Entry, class Missing>
    uint64_t read(const Ring& ring, Entry entry, Missing missing) {
        Position& at = m_positions[&ring];
        const uint64_t taken = ring.taken.load(std::memory_order_acquire);
        at.upTo = std::min(std::max(at.upTo, ring.drained.load(std::memory_order_relaxed)), taken);
        uint64_t lost = 0;
        if (at.upTo + 1 < ring.oldest())
            lost = ring.oldest() - 1 - std::exchange(at.upTo, ring.oldest() - 1);
        while (at.upTo < taken) {
            typename Ring::Words words;
            const EntryState state = ring.read(at.upTo + 1, words);
            if (state == EntryState::UnderWay && !at.isGivenUp(taken))
                break;
            ++at.upTo;
            if (state != EntryState::Whole) {
                ++lost;
                continue;
            }
            if (lost > 0)
                missing(std::exchange(lost, 0));
            entry(at.upTo, words);
        }
        if (lost > 0)
            missing(lost);
        return at.upTo;
    }

    // `next` has taken over what stood in `former`: what was read there is not read again.
    void follow(const Ring& former, const Ring& next) { m_positions[&next].upTo = m_positions[&former].upTo; }

private:
    // A writer needs a microsecond. One that was killed or stopped is not waited for longer than this.
    static constexpr int64_t patience = nanosecondsPerSecond;

    struct Position {
        uint64_t upTo = 0;
        // Since when it is waited for unfinished entries up to that number.
        uint64_t waitedFor = 0;
        int64_t waitingSince = 0;

        bool isGivenUp(uint64_t taken) {
            const int64_t now = monotonicNow();
            if (upTo >= waitedFor) {
                waitedFor = taken;
                waitingSince = now;
            }
            return now - waitingSince > patience;
        }
    };

    std::map<const Ring*, Position> m_positions;
};

#endif
