#pragma once

#include "jobs/Job.h"

#include <utility>

namespace jobs {

/// What a dialog that ends with 1 leaves to be carried out: it shows and asks, and writes nothing itself.
class JobSource {
 public:
    /// Once, after the dialog has ended with 1. A job without files has nothing to do.
    Job takeJob() { return std::exchange(job_, {}); }

 protected:
    ~JobSource() = default;
    void setJob(Job job) { job_ = std::move(job); }

 private:
    Job job_;
};

}  // namespace jobs
