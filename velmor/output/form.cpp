#include "output/form.h"

#include "heap/object.h"
#include "heap/print.h"
#include "output/json.h"
#include "output/tsv.h"

namespace velmor {

void append_value(std::string& out, HostObject value, OutputForm form) {
  switch (form) {
    case OutputForm::kPrinted:
      out += print(value);
      break;
    case OutputForm::kRaw:
      if (tag_of(value) == HOST_TAG_STRING)
        out += text_view(value);
      else
        out += print(value);
      break;
    case OutputForm::kJson:
      append_json(out, value);
      break;
    case OutputForm::kTsv:
      append_tsv(out, value);
      break;
  }
}

}  // namespace velmor
