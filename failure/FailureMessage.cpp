#include "failure/FailureMessage.h"

namespace curvemill {

std::string failureCause(FailureCode code) {
    switch (code) {
        case kCodeInvalidFloat:
            return "Invalid Float Operation";
        case kCodeFloatUnderflow:
            return "Float Underflow";
        default:
            return {};
    }
}

std::string failureMessage(ProcedureName name, FailureCode code) {
    if (isDemonstration(name)) {
        return "THIS IS A DEMO OF EXCEPTION HANDLING\nTHE APPLICATION WILL RETURN TO TITLE PAGE";
    }
    std::string text = "AN ERROR OCCURED IN <";
    text += name;
    text += "> FUNCTION.\n";
    if (code != 0) {
        text += "IT IS DUE TO <" + failureCause(code) + ">\n";
    }
    text +=
        "THE APPLICATION WILL RETURN TO TITLE PAGE.\nPLEASE REPORT THE ERROR TO THE AUTHORS AT\n";
    text += "<";
    text += kSupportAddress;
    text += ">";
    return text;
}

}  // namespace curvemill
