// The three lists of media sections: the same operations for each, grouped by operation.
#include <sdp/SDPDescEx.h>

#include "sdp/session/SDPDescEx_impl.h"

namespace ym::SDP {

namespace {

int add(OwnedList<SDPMedia>& list, SDPMedia* media)
{
    if (!media)
        return SDP_INVALID_ARGUMENT;
    list.add(std::unique_ptr<SDPMedia>(media));
    return 0;
}

int remove(OwnedList<SDPMedia>& list, SDPMedia* media)
{
    return list.take(media) ? 0 : -1;
}

} // namespace

bool SDPDescEx::hasMedia()
{
    return nMedia() > 0;
}

unsigned int SDPDescEx::nMedia()
{
    return nMediaVideo() + nMediaAudio() + nMediaApplication();
}

bool SDPDescEx::hasMediaVideo()
{
    return !impl_->videos.empty();
}

bool SDPDescEx::hasMediaAudio()
{
    return !impl_->audios.empty();
}

bool SDPDescEx::hasMediaApplication()
{
    return !impl_->applications.empty();
}

unsigned int SDPDescEx::nMediaVideo()
{
    return impl_->videos.size();
}

unsigned int SDPDescEx::nMediaAudio()
{
    return impl_->audios.size();
}

unsigned int SDPDescEx::nMediaApplication()
{
    return impl_->applications.size();
}

SDPMedia* SDPDescEx::mediaVideo(unsigned int index)
{
    return impl_->videos.at(index);
}

SDPMedia* SDPDescEx::mediaAudio(unsigned int index)
{
    return impl_->audios.at(index);
}

SDPMedia* SDPDescEx::mediaApplication(unsigned int index)
{
    return impl_->applications.at(index);
}

int SDPDescEx::addMediaVideo(SDPMedia* media)
{
    return add(edit().videos, media);
}

int SDPDescEx::addMediaAudio(SDPMedia* media)
{
    return add(edit().audios, media);
}

int SDPDescEx::addMediaApplication(SDPMedia* media)
{
    return add(edit().applications, media);
}

int SDPDescEx::removeMediaVideo(SDPMedia* media)
{
    return remove(edit().videos, media);
}

int SDPDescEx::removeMediaAudio(SDPMedia* media)
{
    return remove(edit().audios, media);
}

int SDPDescEx::removeMediaApplication(SDPMedia* media)
{
    return remove(edit().applications, media);
}

} // namespace ym::SDP
