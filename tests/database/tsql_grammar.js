// Parses batches of T-SQL by a grammar of the language. Reads a list of {place, line, text} as JSON from standard input and
// prints "place:line: fault" for each fault; "line" is where the batch begins in its file.
"use strict";
const { CharStreams, CommonTokenStream } = require("antlr4ts");
const { TSQLGrammar, TSqlLexer } = require("antlr4ts-sql");

// What the grammar does not know, although servers do: GRANT of these two rights.
const known = text => text.replace(/\bGRANT (UPDATE|DELETE)\b/g, "GRANT INSERT");

function faultsOf(batch) {
    const faults = [];
    const listener = {
        syntaxError: (recognizer, token, line, column, message) =>
            faults.push(`${batch.place}:${batch.line + line - 1}: ${message.slice(0, 120)}`),
    };
    const lexer = new TSqlLexer(CharStreams.fromString(known(batch.text).toUpperCase()));
    const parser = new TSQLGrammar.TSqlParser(new CommonTokenStream(lexer));
    for (const recognizer of [lexer, parser]) {
        recognizer.removeErrorListeners();
        recognizer.addErrorListener(listener);
    }
    parser.tsql_file();
    return faults;
}

const batches = JSON.parse(require("fs").readFileSync(0, "utf8"));
for (const fault of batches.flatMap(faultsOf))
    console.log(fault);
