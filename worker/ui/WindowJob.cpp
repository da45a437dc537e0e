#include "worker/ui/WindowJob.h"

#include <QCoreApplication>
#include <QMessageBox>

#include "worker/ui/Worker.h"

namespace curvemill {

WindowJob::WindowJob(Worker& worker, QWidget* window, std::function<void(int percent)> progress,
                     std::function<void(bool completed)> ended)
    : worker_(worker), window_(window) {
    progressConnection_ = QObject::connect(&worker_, &Worker::progressChanged, window_,
                                           [this, progress = std::move(progress)](int percent) {
                                               if (running_ && progress) {
                                                   progress(percent);
                                               }
                                           });
    endConnection_ = QObject::connect(&worker_, &Worker::finished, window_,
                                      [this, ended = std::move(ended)](bool completed) {
                                          if (!running_) {
                                              return;
                                          }
                                          running_ = false;
                                          if (ended) {
                                              ended(completed);
                                          }
                                      });
}

WindowJob::~WindowJob() {
    QObject::disconnect(progressConnection_);
    QObject::disconnect(endConnection_);
    if (running_) {
        running_ = false;
        worker_.stop();
        while (worker_.isBusy()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
}

bool WindowJob::refuseWhileBusy(const char* caption) {
    if (!worker_.isBusy()) {
        return false;
    }
    QMessageBox::information(window_, QString::fromLatin1(caption),
                             QString::fromLatin1(kMsgWorkerBusy));
    return true;
}

bool WindowJob::start(ProcedureName starter, std::atomic<bool>& keepComputing, Job job) {
    running_ = worker_.start(starter, keepComputing, std::move(job));
    return running_;
}

void WindowJob::stop() {
    if (running_) {
        worker_.stop();
    }
}

}  // namespace curvemill
