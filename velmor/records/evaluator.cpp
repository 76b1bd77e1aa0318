#include "records/evaluator.h"

#include <utility>

#include "heap/call.h"
#include "output/form.h"
#include "records/tally.h"

namespace velmor {
namespace {

std::vector<std::string> sources_of(const Job& job) {
  std::vector<std::string> sources = {job.expression};
  for (const Source& definitions : job.definitions) sources.push_back(definitions.text);
  return sources;
}

std::string name_of(const std::string& file) { return file == "-" ? "standard input" : file; }

}  // namespace

Evaluator::Evaluator(Session& session, const Job& job)
    : session_(session),
      job_(job),
      expression_(session.prepare(job.expression)),
      variables_(session.heap(), sources_of(job), job.separator) {
  velmor_set_output(session_.heap(), note_print, this);
  velmor_set_userinfo(session_.heap(), note_information, this);
}

Evaluator::~Evaluator() {
  velmor_set_output(session_.heap(), print_to_stdout, nullptr);
  velmor_set_userinfo(session_.heap(), inform_stderr, nullptr);
}

void Evaluator::answer(const Chunk& chunk, Answers& answers) {
  answers_ = &answers;
  RecordReader reader(job_.format, chunk);
  Record record;
  while (reader.next(record)) {
    // Ahead of the record's own messages, so that their order does not depend on the chunks.
    if (const std::size_t line = reader.line_with_carriage_return();
        line != 0 && !std::exchange(told_of_carriage_return_, true))
      note(Message::Kind::kCarriageReturn,
           "Warning, a carriage return ends a line; --crlf drops it" + place(chunk.file, line));
    answer(record, chunk.file);
  }
}

void Evaluator::answer(const Record& record, std::size_t file) {
  HostObject value = 0;  // none: the evaluation failed
  try {
    if (job_.format.kind == RecordKind::kFasta && record.header.empty())
      throw Failure("text before the first FASTA header");
    session_.collect_garbage();
    variables_.bind(record, job_.files[file]);
    value = session_.outermost_value_of(expression_);
    if (job_.task == Job::Task::kFilter) filter(record, value);
    if (job_.task == Job::Task::kCount) count(value);
  } catch (const Failure& failure) {
    note(failure.verdict() == Verdict::kUnknownCommand ? Message::Kind::kUnknownCommand
                                                       : Message::Kind::kError,
         failure.report() + place(file, record.line));
  }
  if (job_.task == Job::Task::kMap) map(record, value);
}

// One line of output for each record, also where there is no value, so that lines stay beside the
// lines they answer.
void Evaluator::map(const Record& record, HostObject value) {
  const bool lines_of_fields = job_.form == OutputForm::kJson || job_.form == OutputForm::kTsv;
  begin_record();
  if (!record.header.empty() && !lines_of_fields) {
    answers_->out += record.header;
    answers_->out += '\n';
  }
  if (value != 0)
    append_value(answers_->out, value, job_.form);
  else if (job_.form == OutputForm::kJson)
    answers_->out += "null";
  end_record(record, !lines_of_fields);
}

void Evaluator::filter(const Record& record, HostObject value) {
  const bool name = velmor_tag(value) == HOST_TAG_NAME;
  const std::string_view text = name ? velmor_text(value) : "";
  if (text != "true" && text != "false")
    throw Failure("expecting true or false, but got " +
                  (Session::is_null(value) ? "no value" : session_.print(value)));
  if (text == "false") return;
  begin_record();
  answers_->out += record.source;
  end_record(record, true);
}

void Evaluator::count(HostObject value) {
  std::string text;
  append_value(text, value, job_.form);
  append_counted(answers_->out, text);
}

void Evaluator::begin_record() {
  if (!std::exchange(answers_->ended, true)) answers_->out += job_.format.terminator();
}

// Only the last line of a file may lack its end, and what is written for it then does too, until
// something follows. In the same way the empty line between two paragraphs waits for the second.
void Evaluator::end_record(const Record& record, bool as_paragraph) {
  const bool paragraph = as_paragraph && job_.format.kind == RecordKind::kParagraph;
  if (record.ended) answers_->out += job_.format.terminator();
  answers_->ended = record.ended && !paragraph;
}

void Evaluator::note(Message::Kind kind, const std::string& text) {
  answers_->messages.push_back({kind, answers_->out.size(), text});
}

std::string Evaluator::place(std::size_t file, std::size_t line) const {
  const bool several = job_.files.size() > 1;
  return " (" + (several ? name_of(job_.files[file]) + ", " : "") +
         (job_.format.kind == RecordKind::kZero ? "record " : "line ") + std::to_string(line) + ")";
}

void Evaluator::note_print(void* evaluator, const char* text) {
  static_cast<Evaluator*>(evaluator)->note(Message::Kind::kPrinted, text);
}

void Evaluator::note_information(void* evaluator, std::int64_t /*level*/, const char* package,
                                 const char* text) {
  static_cast<Evaluator*>(evaluator)->note(Message::Kind::kInformation,
                                           std::string(package) + ": " + text);
}

}  // namespace velmor
