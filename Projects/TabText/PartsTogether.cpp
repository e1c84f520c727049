#include "Projects/TabText/PartsTogether.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/StaveBars.h"
#include "Projects/TabText/TextParts.h"

#include <algorithm>

namespace TabText {

namespace {

// Lines of one system are not typed with greater care.
constexpr int kReachOfABarline = 2;
constexpr int kReachOfAWidth = 1;

// One stave of a system, with the bars of it that were read.
struct StaveInSystem {
    const PartStave* Stave = nullptr;
    std::span<const BarReading> Bars;
};

class TogetherFinder {
public:
    explicit TogetherFinder(const TabReading& reading)
        : m_Reading(reading), m_Parts(FindParts(reading.GetFile(), reading.GetAnalysis())) {}

    PartsTogether Find() {
        if (m_Parts.Names.empty())
            return {};
        for (const std::vector<StaveInSystem>& system : Systems())
            AddSystem(system);
        if (m_Aligned == 0 || 3 * m_Aligned < 2 * m_Shared)
            return {};
        RemoveSilentParts();
        return {std::move(m_Parts.Names), std::move(m_Bars)};
    }

private:
    // Staves of which no bar was read are left out.
    std::vector<std::vector<StaveInSystem>> Systems() const {
        std::vector<std::vector<StaveInSystem>> systems;
        auto stave = m_Parts.Staves.begin();
        const PartStave* before = nullptr;
        for (const StaveBars& read : StavesWithBars(m_Reading)) {
            while (stave->First != read.Stave->GetFirstLine())
                ++stave;
            if (before == nullptr || before->System != stave->System)
                systems.emplace_back();
            systems.back().push_back({&*stave, read.Bars});
            before = &*stave;
        }
        return systems;
    }

    void AddSystem(const std::vector<StaveInSystem>& system) {
        std::size_t count = 0;
        bool isAligned = true;
        for (const StaveInSystem& stave : system) {
            isAligned = isAligned && stave.Bars.size() == system.front().Bars.size() &&
                        (&stave == &system.front() || !BeginsSection(stave, system.front()));
            count = std::max(count, stave.Bars.size());
        }
        for (std::size_t bar = 0; bar < count; ++bar) {
            m_Bars.push_back(Together(system, bar));
            isAligned = isAligned && m_Bars.back().AreAligned;
        }
        if (system.size() < 2)
            return;
        ++m_Shared;
        m_Aligned += isAligned ? 1 : 0;
    }

    BarsTogether Together(const std::vector<StaveInSystem>& system, std::size_t bar) const {
        BarsTogether together;
        together.Bars.resize(m_Parts.Names.size());
        together.AreAligned = true;
        const Fretline::TabBar* first = nullptr;
        for (const StaveInSystem& stave : system) {
            if (bar >= stave.Bars.size())
                continue;
            const Fretline::TabBar& here = *stave.Bars[bar].Bar;
            first = first == nullptr ? &here : first;
            together.AreAligned = together.AreAligned && IsBelow(here, *first);
            for (std::size_t part = 0; part < together.Bars.size(); ++part)
                if ((stave.Stave->Parts >> part & 1U) != 0)
                    together.Bars[part] =
                        static_cast<std::size_t>(&stave.Bars[bar] - m_Reading.GetBars().data());
        }
        return together;
    }

    // Those of which no bar was read. Two have bars, as one stave stands below another.
    void RemoveSilentParts() {
        for (std::size_t part = m_Parts.Names.size(); part-- > 0;) {
            const auto place = static_cast<std::ptrdiff_t>(part);
            if (std::any_of(m_Bars.begin(), m_Bars.end(),
                            [&](const BarsTogether& bars) { return bars.Bars[part].has_value(); }))
                continue;
            m_Parts.Names.erase(m_Parts.Names.begin() + place);
            for (BarsTogether& bars : m_Bars)
                bars.Bars.erase(bars.Bars.begin() + place);
        }
    }

    static bool IsBelow(const Fretline::TabBar& bar, const Fretline::TabBar& other) {
        return std::abs(bar.GetStartColumn() - other.GetStartColumn()) <= kReachOfABarline &&
               std::abs(bar.GetWidth() - other.GetWidth()) <= kReachOfAWidth;
    }

    // By a label of its own, or beside its part's name one of another kind than those of the top stave.
    static bool BeginsSection(const StaveInSystem& stave, const StaveInSystem& top) {
        const std::vector<const Fretline::RiffLabel*> labelsOfTop = LabelsOf(top);
        const auto isOfTop = [&](const Fretline::RiffLabel* label) {
            return labelsOfTop.empty() ||
                   std::any_of(labelsOfTop.begin(), labelsOfTop.end(), [&](const Fretline::RiffLabel* other) {
                       return other->m_Keyword == label->m_Keyword;
                   });
        };
        const std::vector<const Fretline::RiffLabel*> labels = LabelsOf(stave);
        return std::any_of(labels.begin(), labels.end(), [&](const Fretline::RiffLabel* label) {
            return label->m_Line != stave.Stave->LabelLine || !isOfTop(label);
        });
    }

    static std::vector<const Fretline::RiffLabel*> LabelsOf(const StaveInSystem& stave) {
        std::vector<const Fretline::RiffLabel*> labels;
        for (const BarReading& bar : stave.Bars)
            if (const Fretline::RiffLabel* label = bar.Bar->GetLabel())
                labels.push_back(label);
        return labels;
    }

    const TabReading& m_Reading;
    TextParts m_Parts;
    std::vector<BarsTogether> m_Bars;
    // Systems of several staves, and those of them whose barlines stand below each other.
    std::size_t m_Shared = 0;
    std::size_t m_Aligned = 0;
};

} // namespace

PartsTogether FindPartsTogether(const TabReading& reading) {
    return TogetherFinder(reading).Find();
}

BarOrder::BarOrder(const TabReading& reading) : m_Places(reading.GetBars().size()) {
    for (const BarsTogether& together : FindPartsTogether(reading).Bars) {
        std::vector<std::size_t>& bars = m_Bars.emplace_back();
        for (const std::optional<std::size_t>& bar : together.Bars)
            if (bar && std::find(bars.begin(), bars.end(), *bar) == bars.end())
                bars.push_back(*bar);
    }
    if (m_Bars.empty())
        for (std::size_t bar = 0; bar < m_Places.size(); ++bar)
            m_Bars.push_back({bar});
    for (std::size_t place = 0; place < m_Bars.size(); ++place)
        for (const std::size_t bar : m_Bars[place])
            m_Places[bar] = place;
}

} // namespace TabText
