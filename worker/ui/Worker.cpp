#include "worker/ui/Worker.h"

namespace curvemill {

Worker::Worker(FailureReporter& reporter, QObject* parent)
    : QObject(parent), reporter_(reporter), throttle_([this](int percent) {
          QMetaObject::invokeMethod(
              this, [this, percent] { Q_EMIT progressChanged(percent); }, Qt::QueuedConnection);
      }) {}

Worker::~Worker() {
    if (thread_.joinable()) {
        keepComputing_->store(false);
        thread_.join();
        keepComputing_->store(true);
    }
}

bool Worker::start(ProcedureName starter, std::atomic<bool>& keepComputing, Job job) {
    if (busy_) {
        return false;
    }
    busy_ = true;
    starter_ = starter;
    keepComputing_ = &keepComputing;
    keepComputing.store(true);
    throttle_.reset();
    Q_EMIT busyChanged(true);
    thread_ = std::thread([this, starter, job = std::move(job)] {
        const JobContext context{[this](int percent) { throttle_.report(percent); },
                                 *keepComputing_};
        JobOutcome outcome = runJob(starter, job, context);
        // Queued, so progress posted before it arrives first and the receiver runs on its own
        // thread; dropped by Qt if the worker is gone by then.
        QMetaObject::invokeMethod(
            this, [this, outcome] { end(outcome); }, Qt::QueuedConnection);
    });
    return true;
}

void Worker::stop() {
    if (busy_ && keepComputing_ != nullptr) {
        keepComputing_->store(false);
    }
}

void Worker::end(JobOutcome outcome) {
    thread_.join();
    keepComputing_->store(true);
    busy_ = false;
    const ProcedureName starter = starter_;
    starter_ = nullptr;
    Q_EMIT busyChanged(false);
    if (outcome.failure) {
        reporter_.reportFailure(starter, outcome.failure->code);
    }
    Q_EMIT finished(outcome.completed);
}

}  // namespace curvemill
