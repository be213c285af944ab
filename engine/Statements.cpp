#include "engine/Statements.h"

namespace marvello {

template <class Tracing>
void Statements<Tracing>::set(var variable, const typename Tracing::Number& value) {
    v_.set(variable, value);
    if (isUndefinedMarker(valueOf(value)))
        undefined_[variable] = refprop_.LastUndefined();
    else if (!undefined_.empty())
        undefined_.erase(variable);
}

template <class Tracing>
void Statements<Tracing>::set(var variable, const char* text) {
    v_.set(variable, text);
    undefined_.erase(variable);
}

template <class Tracing>
void Statements<Tracing>::noteFailure(std::string_view name, std::string_view sentence) {
    std::string cause(name);
    if (sentence.starts_with(cause + " "))
        cause = sentence;
    else
        cause.append(": ").append(sentence);
    messages_.Error.add(failureName, "", {0.0}, cause);
}

template <class Tracing>
std::string Statements<Tracing>::undefinedStates() const {
    std::string names;
    for (const auto& [variable, unused] : undefined_)
        names.append(names.empty() ? "" : ", ").append(definitionOf(variable).name);
    return names.empty() ? names : names + ": " + undefined_.begin()->second;
}

template <class Tracing>
void Statements<Tracing>::warnOfUndefinedStates() {
    if (undefined_.empty() || messages_.Error.Count() > 0) return;  // an error leaves no figures
    messages_.Attention.add("messages.message38", "messages.message38", {}, undefinedStates());
}

template class Statements<Untraced>;
template class Statements<Tracer>;

}  // namespace marvello
