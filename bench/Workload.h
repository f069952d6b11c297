#pragma once

#include "Conf/Interfaces/IConstraintConsumer.h"
#include "Core/Property.h"
#include "Job.h"

#include <boost/intrusive_ptr.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace Tervan::Bench {

// Stands in for a host's dialog: keeps the labels and bounds it is offered, reusing
// its storage from one fill to the next as a dialog reuses its widgets.
class DialogConsumer : public RefCounted<Conf::IConstraintConsumer> {
public:
    static boost::intrusive_ptr<DialogConsumer> Create();

    void Reset() override;
    void AddValue(const std::string& label, const Core::Property& value) override;
    void Commit() override;
    void SetMaxValue(double value) override;
    void SetMaxValue(long long value) override;
    void SetMinValue(double value) override;
    void SetMinValue(long long value) override;
    void SetStep(double value) override;
    void SetStep(long long value) override;

private:
    DialogConsumer() = default;
    ~DialogConsumer() override = default;

    std::vector<std::string> m_labels;
    double m_bounds[3] = {};
};

struct PlanResult {
    Core::Property settings;
    std::size_t brokenRules = 0;  // rules the planned job still breaks
};

// The whole request of a host converting to MP4: the format's defaults, each
// stream's codec defaults merged in, every constraint offered to the dialog, the
// required filters inserted, every helper's correction, and every rule checked.
PlanResult PlanMp4Job(const boost::intrusive_ptr<DialogConsumer>& dialog);

// What a host checks before a job runs: every setting the format, codec and filter
// helpers constrain, at its place in the job, and every rule on each stream. Returns
// the number of settings refused and rules broken.
std::size_t CheckJobSettings(const std::string& formatName, const Core::Property& settings);

// A job document from examples/jobs, read once before timing.
Job::Job LoadExampleJob(const std::string& relativePath);

}  // namespace Tervan::Bench
