#include "Conf/DataHelpers/DataHelperVideoResample.h"

#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Proc/IFilterFrameRate.h"
#include "Proc/SettingsFilterFrameRate.h"

namespace Tervan::Conf {
namespace {

using Ratio = boost::rational<long long>;

// Columns: label, numerator, denominator. The labels are fixed texts; "23.97" stands for 23.976.
struct RateRow {
    const char* label;
    long long numerator;
    long long denominator;
};
const RateRow kFrameRates[] = {
    {"8", 8, 1},   {"10", 10, 1},   {"12", 12, 1},          {"15", 15, 1}, {"20", 20, 1}, {"23.97", 24000, 1001},
    {"24", 24, 1}, {"25", 25, 1},   {"29.97", 30000, 1001}, {"30", 30, 1}, {"50", 50, 1}, {"59.94", 60000, 1001},
    {"60", 60, 1}, {"100", 100, 1}, {"120", 120, 1},
};

// Built once, on first use: the "Auto" mark lives in the processing library.
const PairList<Ratio>& FrameRates() {
    static const PairList<Ratio> rates = [] {
        PairList<Ratio> list = BeginPairList("Auto", Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE);
        for (const RateRow& row : kFrameRates) {
            list.emplace_back(row.label, Ratio(row.numerator, row.denominator));
        }
        return list;
    }();
    return rates;
}

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoResample::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoResample());
}

DataHelperVideoResample::DataHelperVideoResample()
    : DataHelperFilter(Proc::IFilterFrameRate::MakeSettings(Ratio(25))),
      m_frameRates(ConstraintSet::Create(FrameRates())) {}

DataHelperVideoResample::~DataHelperVideoResample() = default;

void DataHelperVideoResample::GetConstraints(Constraints& out) const {
    out[IFormatCodecVideo::TAG_FPS] = m_frameRates;
}

void DataHelperVideoResample::ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const {
    const Ratio rate = preset[IFormatCodecVideo::TAG_FPS].GetRatio();
    if (rate != Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE) {
        out.SetChildT(IFormatCodecVideo::TAG_FPS, rate);
    }
}

}  // namespace Tervan::Conf
