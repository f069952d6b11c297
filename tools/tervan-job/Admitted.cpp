#include "Admitted.h"

#include "Conf/Interfaces/IConstraintConsumer.h"
#include "Core/Localization.h"
#include "Core/RefCount.h"
#include "JobJson.h"

#include <boost/algorithm/string/trim.hpp>
#include <boost/intrusive_ptr.hpp>

namespace Tervan::Job {
namespace {

// Records what a constraint lists, in the order it lists it.
class AdmittedConsumer : public RefCounted<Conf::IConstraintConsumer> {
public:
    static boost::intrusive_ptr<AdmittedConsumer> Create() {
        return boost::intrusive_ptr<AdmittedConsumer>(new AdmittedConsumer());
    }

    const Admitted& Result() const { return m_admitted; }

    void Reset() override { m_admitted = Admitted(); }
    // A value listed twice under one label is shown once.
    void AddValue(const std::string& label, const Core::Property& value) override {
        for (const auto& entry : m_admitted.values) {
            if (entry.first == label && entry.second == value) {
                return;
            }
        }
        m_admitted.values.emplace_back(label, value);
    }
    void Commit() override {}
    void SetMaxValue(double value) override { m_admitted.maximum = Core::Property("", value); }
    void SetMaxValue(long long value) override { m_admitted.maximum = Core::Property("", value); }
    void SetMinValue(double value) override { m_admitted.minimum = Core::Property("", value); }
    void SetMinValue(long long value) override { m_admitted.minimum = Core::Property("", value); }
    void SetStep(double value) override { m_admitted.step = Core::Property("", value); }
    void SetStep(long long value) override { m_admitted.step = Core::Property("", value); }

protected:
    AdmittedConsumer() = default;
    ~AdmittedConsumer() override = default;

private:
    Admitted m_admitted;
};

}  // namespace

Admitted Probe(const Conf::IPropertyConstraint& constraint) {
    const auto consumer = AdmittedConsumer::Create();
    try {
        constraint.FillValueList(consumer);
    } catch (const std::exception&) {
        // A constraint that cannot list itself admits nothing a person could be shown.
        return Admitted();
    }
    return consumer->Result();
}

std::string EntryText(const std::string& label, const Core::Property& value) {
    if (value.GetType() == TYPE_CONTAINER || label == PropertyValueToString(value)) {
        return label;
    }
    return label + " (" + DisplayValue(value) + ")";
}

std::string AdmittedText(const Admitted& admitted) {
    std::string text;
    if (!admitted.values.empty()) {
        text = admitted.values.size() == 1 ? "" : "one of: ";
        for (std::size_t i = 0; i < admitted.values.size(); ++i) {
            text += (i == 0 ? "" : ", ") + EntryText(admitted.values[i].first, admitted.values[i].second);
        }
        return text;
    }
    if (admitted.IsRange()) {
        text = "from " + (admitted.minimum ? DisplayValue(*admitted.minimum) : std::string("any")) + " to " +
               (admitted.maximum ? DisplayValue(*admitted.maximum) : std::string("any"));
        if (admitted.step && admitted.step->GetDouble() != 0.0) {
            text += " in steps of " + DisplayValue(*admitted.step);
        }
    }
    return text;
}

std::string ConstraintText(const Conf::IPropertyConstraint& constraint, const std::string& name) {
    std::string description;
    try {
        description = constraint.Description(name);
    } catch (const std::exception&) {
        description.clear();
    }
    boost::algorithm::trim_right(description);
    if (!description.empty()) {
        // Descriptions may be identifiers to translate; translated texts pass unchanged.
        return Core::GetLocalizationManagerForDomain("core").Translate(description);
    }
    const std::string admitted = AdmittedText(Probe(constraint));
    return admitted.empty() ? "not admitted" : "must be " + admitted;
}

}  // namespace Tervan::Job
