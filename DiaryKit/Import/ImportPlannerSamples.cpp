#include <algorithm>

#include "DiaryKit/Import/ImportPlanCharacters.h"
#include "DiaryKit/Import/ImportPlanner.h"

namespace diary::ImportPlanner {

namespace {

using Sample = ImportPlan::Sample;
using Trait = Sample::Trait;

constexpr size_t kMostSamples = 12;
constexpr int kSamplesOfTrait = 2;

class Picked {
public:
    // Takes the sample unless there are enough, or one of its day and year is there already.
    void offer(const Sample& sample) {
        const bool isTaken =
            std::any_of(m_samples.begin(), m_samples.end(), [&](const Sample& one) {
                return one.monthDay == sample.monthDay && one.year == sample.year;
            });
        if (m_samples.size() < kMostSamples && !isTaken) m_samples.push_back(sample);
    }

    void offer(Sample sample, Trait trait) {
        sample.traits.insert(trait);
        offer(sample);
    }

    [[nodiscard]] const std::vector<Sample>& samples() const { return m_samples; }

private:
    std::vector<Sample> m_samples;
};

void offerWithTrait(const std::vector<Sample>& samples, Trait trait, Picked& picked) {
    int offered = 0;
    for (const Sample& sample : samples) {
        if (offered == kSamplesOfTrait) return;
        if (!sample.traits.contains(trait)) continue;
        picked.offer(sample);
        ++offered;
    }
}

const Sample& earliest(const std::vector<Sample>& samples) {
    return *std::min_element(samples.begin(), samples.end(), [](const Sample& a, const Sample& b) {
        if (a.year != b.year) return a.year < b.year;
        return a.monthDay.ordinalInCycle() < b.monthDay.ordinalInCycle();
    });
}

const Sample& longest(const std::vector<Sample>& samples) {
    const Sample* longest = &samples.front();
    qsizetype most = characterCount(longest->added);
    for (const Sample& sample : samples) {
        // A text has no more characters than units, and units cost nothing to count.
        if (sample.added.size() <= most) continue;
        const qsizetype count = characterCount(sample.added);
        if (count <= most) continue;
        most = count;
        longest = &sample;
    }
    return *longest;
}

}  // namespace

std::vector<Sample> pickSamples(const std::vector<Sample>& samples) {
    if (samples.size() <= kMostSamples) return samples;
    Picked picked;
    for (const Trait trait : {Trait::several, Trait::appended, Trait::headings}) {
        offerWithTrait(samples, trait, picked);
    }
    picked.offer(earliest(samples), Trait::earliest);
    picked.offer(longest(samples), Trait::longest);
    const size_t step = samples.size() / kMostSamples;
    for (size_t i = 0; i < samples.size(); i += step) picked.offer(samples[i]);
    return picked.samples();
}

}  // namespace diary::ImportPlanner
