#pragma once

#include "Conf/Interfaces/IConstraintConsumer.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>

#include <string>
#include <vector>

// Records every call a constraint makes, in order, as one line each.
class RecordingConsumer : public Tervan::RefCounted<Tervan::Conf::IConstraintConsumer> {
public:
    static boost::intrusive_ptr<RecordingConsumer> Create() { return new RecordingConsumer(); }

    void Reset() override { calls.push_back("Reset"); }
    void AddValue(const std::string& label, const Tervan::Core::Property& value) override {
        calls.push_back("AddValue " + label + "=" + Tervan::Core::PropertyValueToString(value));
        values.push_back(value);
    }
    void Commit() override { calls.push_back("Commit"); }
    void SetMaxValue(double value) override { calls.push_back("SetMaxValue(double) " + Number(value)); }
    void SetMaxValue(long long value) override { calls.push_back("SetMaxValue(int) " + std::to_string(value)); }
    void SetMinValue(double value) override { calls.push_back("SetMinValue(double) " + Number(value)); }
    void SetMinValue(long long value) override { calls.push_back("SetMinValue(int) " + std::to_string(value)); }
    void SetStep(double value) override { calls.push_back("SetStep(double) " + Number(value)); }
    void SetStep(long long value) override { calls.push_back("SetStep(int) " + std::to_string(value)); }

    std::vector<std::string> calls;
    std::vector<Tervan::Core::Property> values;

private:
    static std::string Number(double value) {
        return Tervan::Core::PropertyValueToString(Tervan::Core::Property("", value));
    }
};
