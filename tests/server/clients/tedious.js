// Reads from the test server through tedious and prints a line for every row, error and output, its cells parted by tabs.
//   node tedious.js PORT USER PASSWORD DATABASE ROWS TYPES TWO_SETS NAME RENAME RENAME_BY_PARAMETERS
'use strict';
const { Connection, Request, TYPES } = require('tedious');

const [port, user, password, database, rows, types, twoSets, name, rename, renameByParameters] = process.argv.slice(2);

function connect(secret) {
  return new Promise((resolve, reject) => {
    const connection = new Connection({
      server: '127.0.0.1',
      authentication: { type: 'default', options: { userName: user, password: secret } },
      options: { port: Number(port), database, encrypt: false, useUTC: false, useColumnNames: false },
    });
    let number;
    connection.on('errorMessage', (message) => { number = message.number; });
    connection.connect((error) => (error ? reject(Object.assign(error, { number })) : resolve(connection)));
  });
}

function shown(value) {
  if (value === null) return 'NULL';
  if (value === true || value === false) return value ? '1' : '0';
  if (!(value instanceof Date)) return String(value);
  const two = (number) => String(number).padStart(2, '0');
  return `${value.getFullYear()}-${two(value.getMonth() + 1)}-${two(value.getDate())} ` +
    `${two(value.getHours())}:${two(value.getMinutes())}:${two(value.getSeconds())}`;
}

function printRows(request) {
  request.on('row', (cells) => console.log(cells.map((cell) => shown(cell.value)).join('\t')));
}

// Runs a request by one of the connection's ways ("execSql", "execSqlBatch", "callProcedure").
function run(connection, how, text, { parameters = {}, outputs = {} } = {}) {
  return new Promise((resolve, reject) => {
    const request = new Request(text, (error) => (error ? reject(error) : resolve()));
    for (const key of Object.keys(parameters)) request.addParameter(key, TYPES.NVarChar, parameters[key]);
    for (const key of Object.keys(outputs)) request.addOutputParameter(key, outputs[key], '', { length: 8 });
    printRows(request);
    request.on('returnValue', (key, value) => console.log(shown(value)));
    connection[how](request);
  });
}

async function failing(attempt) {
  try {
    await attempt();
    console.log('no error');
  } catch (error) {
    console.log(`error ${error.number ?? error.code}`);
  }
}

const step = (connection, how) =>
  new Promise((resolve, reject) => connection[how]((error) => (error ? reject(error) : resolve())));

async function main() {
  const connection = await connect(password);
  for (const number of ['00000001', '00000002']) await run(connection, 'execSql', rows, { parameters: { number } });
  await run(connection, 'execSqlBatch', types);
  await run(connection, 'execSqlBatch', twoSets);
  await failing(() => run(connection, 'callProcedure', 'Patient_Data..sp_nope', { parameters: { a: '1' } }));
  await failing(() => run(connection, 'execSql', 'select a from Patient_Data..tbNope'));
  await failing(() => connect('wrong'));
  await run(connection, 'callProcedure', 'Patient_Data..sp_adm_GetNewHospNum', { outputs: { HospNum: TYPES.VarChar } });
  await step(connection, 'beginTransaction');
  await run(connection, 'execSql', rename);
  await step(connection, 'rollbackTransaction');
  await run(connection, 'execSql', name);
  await step(connection, 'beginTransaction');
  await run(connection, 'execSql', renameByParameters, { parameters: { name: 'PEÑA', number: '00000001' } });
  await step(connection, 'commitTransaction');
  await run(connection, 'execSql', name);
  connection.close();
}

main().catch((error) => {
  console.error(error);
  process.exit(1);
});
