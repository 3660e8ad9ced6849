#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "desktop/Picture.h"

// Writes the pictures of a generation to their files on a thread of its
// own: encoding a picture overlaps with drawing and describing the next
// window. Only pixels and paths cross to that thread; nothing else of the
// program runs there.
namespace scriv {

class PictureFileWriter {
public:
    PictureFileWriter();
    // Writes what is still queued.
    ~PictureFileWriter();
    PictureFileWriter(const PictureFileWriter&) = delete;
    PictureFileWriter& operator=(const PictureFileWriter&) = delete;

    // Queues the picture for path as "bmp", "jpg" or "png"; waits while the
    // queued pictures hold many pixels, so that memory stays bounded.
    void Write(Picture picture, std::string path, std::string format);
    // Waits until every queued picture is written, and answers the paths of
    // those that could not be written since the last call.
    std::vector<std::string> Finish();
    // Waits until the picture queued for path, if any, is written or has
    // failed; it is written next, and the others after it.
    void WaitFor(const std::string& path);
    // The paths of the pictures that could not be written since the last
    // call, without waiting.
    std::vector<std::string> TakeFailures();

private:
    struct Job {
        Picture picture;
        std::string path;
        std::string format;
    };

    void Run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Job> m_queue;
    std::vector<std::string> m_failed;
    std::size_t m_queuedBytes { 0 };
    bool m_busy { false };
    // The path of the picture being written while busy.
    std::string m_busyPath;
    bool m_stopping { false };
    std::thread m_thread;
};

// Encodes and writes one picture as "bmp", "jpg" (quality 100) or "png";
// false when the format is unknown or the file cannot be written.
bool WritePictureFile(const Picture& picture, const std::string& path, const std::string& format);

}  // namespace scriv
