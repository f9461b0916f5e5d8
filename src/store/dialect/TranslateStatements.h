#pragma once

#include "store/dialect/binding/BindScope.h"
#include "store/dialect/printing/EngineWords.h"
#include "store/dialect/reading/Ast.h"
#include "store/dialect/Translation.h"

namespace zelkor::dialect {

/// Translations of the statements that define tables and indexes.
Translation translateDefinition(const CreateTable& statement, const SchemaView& schema,
                                const EngineWords& engine);
Translation translateDefinition(const CreateIndex& statement, const SchemaView& schema,
                                const EngineWords& engine);
Translation translateDefinition(const DropTable& statement, const SchemaView& schema,
                                const EngineWords& engine);
Translation translateDefinition(const DropIndex& statement, const SchemaView& schema,
                                const EngineWords& engine);
Translation translateDefinition(const AlterTable& statement, const SchemaView& schema,
                                const EngineWords& engine);

Translation translateSelectInto(const Select& select, BindContext& context, const EngineWords& engine);

[[noreturn]] void raiseTableExists(std::string_view table);

}  // namespace zelkor::dialect
