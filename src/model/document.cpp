#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

EasyToken::EasyToken() = default;
EasyToken::EasyToken(const EasyToken& other) = default;
EasyToken::EasyToken(EasyToken&& other) noexcept = default;
EasyToken& EasyToken::operator=(const EasyToken& other) = default;
EasyToken& EasyToken::operator=(EasyToken&& other) noexcept = default;
EasyToken::~EasyToken() = default;

ModuleEntry::ModuleEntry() = default;
ModuleEntry::ModuleEntry(const ModuleEntry& other) = default;
ModuleEntry::ModuleEntry(ModuleEntry&& other) noexcept = default;
ModuleEntry& ModuleEntry::operator=(const ModuleEntry& other) = default;
ModuleEntry& ModuleEntry::operator=(ModuleEntry&& other) noexcept = default;
ModuleEntry::~ModuleEntry() = default;

Module::Module() = default;
Module::Module(const Module& other) = default;
Module::Module(Module&& other) noexcept = default;
Module& Module::operator=(const Module& other) = default;
Module& Module::operator=(Module&& other) noexcept = default;
Module::~Module() = default;

BDFData::BDFData() = default;
BDFData::BDFData(const BDFData& other) = default;
BDFData::BDFData(BDFData&& other) noexcept = default;
BDFData& BDFData::operator=(const BDFData& other) = default;
BDFData& BDFData::operator=(BDFData&& other) noexcept = default;
BDFData::~BDFData() = default;

}  // namespace kelp::input::bdf
