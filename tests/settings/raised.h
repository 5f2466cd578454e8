// What a call raised: "Class.Method:Error" and the parameters, as " name=value" each; empty if it returned.
#pragma once

#include "core/errors/MException.h"

template <class Call>
std::wstring RaisedBy(Call call) {
    std::wstring raised;
    try {
        call();
    } catch (const hx::MException& exception) {
        for (const auto& error : exception.GetChain()) {
            raised += error->GetCode();
            for (const auto& [name, value] : error->GetParameters()) {
                raised.append(L" ").append(name).append(L"=").append(value);
            }
        }
    }
    return raised;
}
