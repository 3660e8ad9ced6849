#include "screenshots/PictureFileWriter.h"

#include <algorithm>
#include <utility>

#include "desktop/BmpFile.h"
#include "desktop/PngFile.h"
#include "desktop/cJPEG.h"
#include "foundation/StringUtil.h"

namespace scriv {

namespace {

// Pictures are queued up to this many bytes of pixels (always at least one).
constexpr std::size_t kMostQueuedBytes = 64u << 20;

}  // namespace

bool WritePictureFile(const Picture& picture, const std::string& path, const std::string& format)
{
    if (EqualsNoCase(format, "bmp"))
        return WriteBmpFile(picture, path);
    if (EqualsNoCase(format, "png"))
        return WritePngFile(picture, path);
    if (!EqualsNoCase(format, "jpg"))
        return false;
    cJPEG jpeg;
    int errorNumber = 0;
    std::string errorText;
    return jpeg.CreateFromPicture(picture) && JPEG_Save(jpeg, path, 100, false, errorNumber, errorText);
}

PictureFileWriter::PictureFileWriter()
    : m_thread([this] { Run(); })
{
}

PictureFileWriter::~PictureFileWriter()
{
    {
        std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void PictureFileWriter::Write(Picture picture, std::string path, std::string format)
{
    std::size_t bytes = picture.Bytes().size();
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_queue.empty() || m_queuedBytes + bytes <= kMostQueuedBytes; });
    m_queuedBytes += bytes;
    m_queue.push_back({ std::move(picture), std::move(path), std::move(format) });
    lock.unlock();
    m_changed.notify_all();
}

std::vector<std::string> PictureFileWriter::Finish()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_queue.empty() && !m_busy; });
    return std::exchange(m_failed, {});
}

void PictureFileWriter::WaitFor(const std::string& path)
{
    std::unique_lock lock(m_mutex);
    // The picture waited for is written next, before those queued ahead of it.
    auto queued = std::find_if(m_queue.begin(), m_queue.end(), [&](const Job& job) { return job.path == path; });
    if (queued != m_queue.end() && queued != m_queue.begin())
        std::rotate(m_queue.begin(), queued, std::next(queued));
    m_changed.wait(lock, [&] {
        bool waiting = std::any_of(m_queue.begin(), m_queue.end(), [&](const Job& job) { return job.path == path; });
        return !waiting && !(m_busy && m_busyPath == path);
    });
}

std::vector<std::string> PictureFileWriter::TakeFailures()
{
    std::lock_guard lock(m_mutex);
    return std::exchange(m_failed, {});
}

void PictureFileWriter::Run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_stopping || !m_queue.empty(); });
        if (m_queue.empty())
            return;
        Job job = std::move(m_queue.front());
        m_queue.pop_front();
        m_queuedBytes -= job.picture.Bytes().size();
        m_busy = true;
        m_busyPath = job.path;
        lock.unlock();
        m_changed.notify_all();
        bool written = WritePictureFile(job.picture, job.path, job.format);
        lock.lock();
        if (!written)
            m_failed.push_back(job.path);
        m_busy = false;
        m_changed.notify_all();
    }
}

}  // namespace scriv
