#pragma once

#include "Conf/Interfaces/IDataHelper.h"
#include "Core/Api.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

// The registry: the library's entry points. Type keys are IPreset::KEY_FORMAT,
// IPreset::KEY_FILTER_AUDIO_CODEC, IPreset::KEY_FILTER_VIDEO_CODEC, the codec section
// names IFormatCodecAudio::TAG_FORMAT_CODEC_AUDIO and IFormatCodecVideo::TAG_FORMAT_CODEC_VIDEO,
// and the filters' class identifiers. All may be called from any thread.

// The format, audio codec or video codec table; HelperException (TagClassIsNotFound)
// for any other type.
TERVAN_API const Tervan::Conf::IDataHelper::DataHelperMap& GetAvailableDataHelpers(const std::string& type);

// The shared helper of that type and name; a filter's name is ignored. HelperException
// with TagClassIsFound and TagTypeIsNotFound for an unknown name, TagClassIsNotFound
// for an unknown type.
TERVAN_API const boost::intrusive_ptr<const Tervan::Conf::IDataHelper> CreateDataHelper(const std::string& type,
                                                                                        const std::string& name);

// A new proxy per call around CreateDataHelper's helper, admitting automatic values;
// AC-3 audio gets a new empty-codec helper instead, so the automatic path offers no
// settings for it. CreateDataHelper's exceptions pass through.
TERVAN_API boost::intrusive_ptr<const Tervan::Conf::IDataHelper> CreateDataHelperAuto(const std::string& type,
                                                                                      const std::string& name);

// Asks every helper of a table for its constraints; any exception reaches the caller.
TERVAN_API void DataHelpersTest(const std::string& type);
