"""The statements of the stand-in: T-SQL rewritten word by word, and run on SQLite."""
import datetime as dt, decimal, re, sqlite3
D = decimal.Decimal
EPOCH = dt.datetime(1900, 1, 1)

class SqlError(Exception):
    def __init__(s, num, cls, text): super().__init__(text); s.num, s.cls, s.text = num, cls, text

# ---------------------------------------------------------------- words
TOK = re.compile(r"'(?:[^']|'')*'|--[^\n]*|/\*.*?\*/|\[(?:[^\]]|\]\])*\]|\"[^\"]*\"|0[xX][0-9a-fA-F]*|@@?\w+|[\w#$]+|\s+|.", re.S)
VERBS = ('INSERT', 'UPDATE', 'DELETE', 'SET', 'BEGIN', 'COMMIT', 'ROLLBACK', 'IF', 'EXEC', 'DECLARE', 'CREATE', 'DROP')
CHARS = {'char', 'varchar', 'nchar', 'nvarchar', 'text', 'ntext'}
BYTES = {'varbinary', 'binary', 'image'}
DATES = {'datetime', 'smalldatetime', 'date', 'datetime2'}
def toks(sql): return [t for t in TOK.findall(sql) if not t.startswith(('--', '/*'))]
def words(ts): return [t for t in ts if not t.isspace()]
def bare(name): return name.split('.')[-1].strip('[]"')
def module(sql): return re.match(r'\s*CREATE\s+(FUNCTION|TRIGGER)\b', ''.join(toks(sql)), re.I)
def split(sql):
    """Statements of a batch: at ';', and before a verb that starts a line or follows a SET ... statement."""
    if module(sql): return [''.join(toks(sql)).strip()]
    out, cur, depth, first, line = [], [], 0, '', False
    for t in toks(sql):
        if t == '(': depth += 1
        elif t == ')': depth -= 1
        u = t.upper()
        ends = depth == 0 and first and (t == ';' or first == 'SET' and u in VERBS + ('SELECT',) or
                                         line and u in VERBS and first not in ('CREATE', 'IF', 'ALTER', 'MERGE', 'WITH') and not (first == 'UPDATE' and u == 'SET'))
        if ends: out.append(''.join(cur)); cur, first = [], ''
        if t == ';' and depth == 0: continue
        if not t.isspace(): first = first or u
        line = t.isspace() and '\n' in t
        cur.append(t)
    return [s.strip() for s in out + [''.join(cur)] if s.strip()]
def arguments(ts, i):
    """The arguments of the call whose '(' stands at ts[i], and the place behind its ')'."""
    out, depth = [''], 0
    while True:
        t = ts[i]; i += 1
        if t == ')': depth -= 1
        if depth == 0 and t == ')': return [a.strip() for a in out], i
        if t == ',' and depth == 1: out.append('')
        elif depth > 0: out[-1] += t
        if t == '(': depth += 1

# ---------------------------------------------------------------- dates
FORMS = (re.compile(r'(?P<d>\d{1,2})/(?P<m>\d{1,2})/(?P<y>\d{4})( (?P<t>.*))?'), re.compile(r'(?P<y>\d{4})(?P<m>\d\d)(?P<d>\d\d)( (?P<t>.*))?'), re.compile(r'(?P<y>\d{4})-(?P<m>\d\d)-(?P<d>\d\d)([ T](?P<t>.*))?'))
ISO = re.compile(r'\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}')
def todt(v):
    if isinstance(v, (int, float)): return EPOCH + dt.timedelta(days=v)
    v = str(v).strip()
    if not v: return EPOCH
    for m in filter(None, (f.fullmatch(v) for f in FORMS)):
        try: return dt.datetime.fromisoformat('%s-%02d-%02d %s' % (m['y'], int(m['m']), int(m['d']), ':'.join(p.zfill(2) for p in (m['t'] or '00:00').split(':'))))
        except ValueError: raise SqlError(242, 16, 'The conversion of a varchar data type to a datetime data type resulted in an out-of-range value.') from None
    raise SqlError(241, 16, 'Conversion failed when converting date and/or time from character string.')
def iso(v): return None if v is None else todt(v).isoformat(' ', 'milliseconds')
def order(a, b): return (a > b) - (a < b)
def cmp(a, b): return order(a.rstrip(' ').casefold(), b.rstrip(' ').casefold())
def cmpdate(a, b):
    try: return order(todt(a), todt(b))
    except SqlError: return order(a, b)
def rounded(v, n): return None if v is None else float(D(repr(v)).quantize(D(1).scaleb(-n), decimal.ROUND_HALF_UP))

# ---------------------------------------------------------------- T-SQL -> SQLite (strings untouched)
TABLES = "(SELECT name AS TABLE_NAME FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' AND name NOT LIKE 'tds_%')"
def first_row(sql):
    """UPDATE TOP (1), and the same by way of a common table expression that orders the rows."""
    m = re.match(r'UPDATE TOP \(1\) (?P<t>\S+) (?P<set>SET \[\w+\] = \S+)(?P<rest>.*)$', sql, re.I | re.S) or \
        re.match(r'WITH fila AS \(SELECT TOP \(1\) \* FROM (?P<t>\S+)(?P<rest>.*)\) UPDATE fila (?P<set>SET .*)$', sql, re.I | re.S)
    return sql if not m else f"UPDATE {m['t']} {m['set']} WHERE rowid = (SELECT rowid FROM {m['t']}{m['rest']} LIMIT 1)"
def rewrite(sql, functions, blobs):
    ts, out, i = toks(first_row(sql)), [], 0
    ddl = [t.upper() for t in ts if not t.isspace()][:1] in (['CREATE'], ['ALTER'])
    def nxt(k):
        while k < len(ts) and ts[k].isspace(): k += 1
        return k
    while i < len(ts):
        t, u = ts[i], ts[i].upper(); n = nxt(i + 1); nx = ts[n].upper() if n < len(ts) else ''
        if u == 'N' and i + 1 < len(ts) and ts[i + 1].startswith("'"): pass
        elif u in ('DBO', '[DBO]') and nx == '.':
            name = ts[nxt(n + 1)].strip('[]').lower(); i = n
            if name in functions:
                names, body = functions[name]; args, i = arguments(ts, nxt(nxt(n + 1) + 1)); call = dict(zip(names, args))
                out.append(rewrite('(' + ''.join('(%s)' % call[w.lower()] if w.lower() in call else w for w in toks(body)) + ')', functions, blobs)); i -= 1
        elif u == 'INFORMATION_SCHEMA' and nx == '.': i = nxt(n + 1); out.append(TABLES)
        elif u == 'CONVERT' and nx == '(':
            args, i = arguments(ts, n); i -= 1; kind = args[0].split('(')[0].strip('[] ').lower()
            out.append('%s(%s)' % ('tds_bytes' if kind in BYTES else 'tds_date' if kind in DATES else 'tds_text', rewrite(args[1], functions, blobs)))
        elif t.strip('[]').lower() in blobs and nx in ('=', '<') and not ddl and re.match(r"\s*(=|<>)\s*''(?!')", ''.join(ts[i + 1:i + 8])):
            m = re.match(r"\s*(=|<>)\s*''", ''.join(ts[i + 1:i + 8])); out.append(f"{t} {m[1]} x''"); i += len(toks(m[0]))
        elif t.startswith('#'): out.append('"%s"' % t)
        elif len(t) > 18 and t.isdigit(): out.append("'%s'" % (t.lstrip('0') or '0'))
        elif re.match('0[xX]', t): out.append("x'%s'" % (t[2:] if len(t) % 2 == 0 else '0' + t[2:]))
        elif u == '@@ROWCOUNT': out.append('tds_rowcount()')
        elif u == '@@IDENTITY': out.append('last_insert_rowid()')
        elif u == '@@TRANCOUNT': out.append('tds_trancount()')
        elif u.startswith('@@'): out.append('NULL')
        elif u == 'ISNULL' and nx == '(': out.append('ifnull')
        elif ddl and u == 'IDENTITY' or ddl and u in ('CLUSTERED', 'NONCLUSTERED'):
            if u == 'IDENTITY' and nx == '(':
                while ts[i] != ')': i += 1
            if u == 'IDENTITY': out.append('/*identity*/')
        elif ddl and u == 'MAX' : out.append('2147483647')
        elif ddl and t.strip('[]').lower() in CHARS and out and ''.join(out).rstrip()[-1:] not in ('(', ',', '.'):
            out.append(t.strip('[]'))
            if nx == '(':
                while ts[i] != ')': i += 1; out.append('2147483647' if ts[i].upper() == 'MAX' else ts[i])
            out.append(' COLLATE mssql')
        elif ddl and u == 'COLLATE': i = n
        elif ddl and t.strip('[]').lower() in DATES: out.append(t.strip('[]') + ' text COLLATE msdate')  # or SQLite takes yyyymmdd for a number
        elif ddl and t.strip('[]').lower() in BYTES | {'decimal', 'numeric', 'money'}: out.append(t.strip('[]'))
        elif ddl and u == 'AS' and ts[nxt(i + 1)] != '(': out.append('datetime text COLLATE msdate AS (%s)' % ts[n]); i = n
        elif u == '+' and out and (''.join(out).rstrip().endswith("'") or nx.startswith("'")): out.append('||')
        else: out.append(t)
        i += 1
    s = ''.join(out)
    s = re.sub(r'\bCAST\s*\((.*?) AS (?:small)?datetime2?\)', r'tds_date(\1)', s, flags=re.I)
    if ddl:
        s = re.sub(r'^(\s*CREATE(?: UNIQUE)? INDEX )(\w+)(\s+ON\s+)(\w+)', r'\1\2_\4\3\4', s, flags=re.I)  # their names are the table's own
        s = re.sub(r'^(\s*CREATE) (TABLE "#)', r'\1 TEMP \2', s, flags=re.I)
        s, k = re.subn(r'\[?\bint(?:eger)?\b\]?\s+/\*identity\*/(\s+not\s+null)?(\s+primary\s+key)?', 'INTEGER PRIMARY KEY AUTOINCREMENT', s, flags=re.I)
        if k: s = re.sub(r'(constraint\s+\S+\s+)?primary\s+key\s*\(', 'UNIQUE (', s, flags=re.I)
        s = re.sub(r'\)\s*on\s+\[?primary\]?\s*$', ')', s, flags=re.I)
    m = re.match(r'(\s*select\s+(?:distinct\s+)?)top\s*\(?\s*(\d+|@\w+)\s*\)?(\s.*)$', s, re.I | re.S)
    if m: s = m[1] + m[3] + ' LIMIT ' + m[2]
    return s

# ---------------------------------------------------------------- the database
TIMEOUT = (1222, 16, 'Lock request time out period exceeded.')
class Db:
    def __init__(s, path, spid, log):
        s.c = sqlite3.connect(path, isolation_level=None, timeout=5, check_same_thread=False); s.spid, s.log, s.rc, s.ident = spid, log, 0, None
        s.c.execute('pragma journal_mode=wal'); s.c.execute('pragma foreign_keys=on'); s.c.create_collation('mssql', cmp); s.c.create_collation('msdate', cmpdate)
        s.c.execute('create table if not exists tds_module(kind, name, on_table, args, body)'); s.failed, s.known = None, (None, ())
        f = lambda name, n, call: s.c.create_function(name, n, s.guard(call)); now = lambda: dt.datetime.now().isoformat(' ', 'milliseconds')
        f('getdate', 0, now); f('len', 1, lambda a: None if a is None else len(str(a).rstrip(' ')))
        f('tds_rowcount', 0, lambda: s.rc); f('tds_trancount', 0, lambda: int(s.c.in_transaction))
        f('object_id', 1, lambda n: s.exists(n)); f('object_id', 2, lambda n, k: s.exists(n))
        f('tds_date', 1, iso); f('tds_bytes', 1, lambda v: v.encode('cp1252', 'replace') if isinstance(v, str) else v); f('tds_text', 1, lambda v: None if v is None else str(v)); f('round', 2, rounded)
    def guard(s, call):
        """SQLite tells only that a function failed; this keeps why."""
        def guarded(*a):
            try: return call(*a)
            except SqlError as e: s.failed = e; raise
        return guarded
    def exists(s, n):
        r = s.c.execute("select rowid from sqlite_master where lower(name)=lower(?)", [bare(n)]).fetchone(); return r[0] if r else None
    def tran(s, what):
        if what == 'begin' and not s.c.in_transaction: s.c.execute('begin immediate')
        elif what == 'commit' and s.c.in_transaction: s.c.execute('commit')
        elif what == 'rollback' and s.c.in_transaction: s.c.execute('rollback')
    def define(s, sql):
        """Keeps a function, whose calls are replaced by its query, or a trigger."""
        m = re.match(r'CREATE\s+FUNCTION\s+(\S+?)\s*\((.*?)\)\s*RETURNS\s+\w+\s+AS\s+BEGIN\s+RETURN\s*\((.*)\)\s*END$', sql, re.I | re.S)
        if m: row = ('function', bare(m[1]).lower(), '', ' '.join(re.findall(r'@\w+', m[2])).lower(), m[3])
        else:
            m = re.match(r'CREATE\s+TRIGGER\s+(\S+)\s+ON\s+(\S+)\s+AFTER\s+(\w+)\s+AS\s+BEGIN(.*)END$', sql, re.I | re.S)
            if not m: raise SqlError(102, 15, 'stand-in: this form of function or trigger is not supported')
            row = ('trigger', bare(m[1]).lower(), bare(m[2]).lower(), m[3].lower(), m[4])
        s.c.execute('insert into tds_module values(?,?,?,?,?)', row)
    def schema(s):
        """(functions, triggers, binary columns), read again when another definition has been made."""
        v = s.c.execute('pragma schema_version').fetchone()[0]
        if s.known[0] != v: s.known = v, ({n: (a.split(), b) for n, _, a, b in s.kept('function')}, s.kept('trigger'), s.blobs())
        return s.known[1]
    def kept(s, kind): return s.c.execute('select name, on_table, args, body from tds_module where kind = ?', [kind]).fetchall()
    def columns(s, table): return [(r[1], re.split(r'\W', r[2].lower())[0]) for r in s.c.execute(f'pragma table_xinfo("{bare(table)}")')]
    def blobs(s): return {r[0].lower() for r in s.c.execute("select c.name from sqlite_master t, pragma_table_info(t.name) c where t.type = 'table' and lower(c.type) like '%binary%'")}
    def normalise(s, table):
        """Dates are kept in one form; what is none is refused."""
        dates = [c for c, kind in s.columns(table) if kind in DATES and not s.computed(table, c)]
        change = f'UPDATE "{table}" SET ' + ', '.join(f'"{c}" = tds_date("{c}")' for c in dates) + ' WHERE rowid = NEW.rowid;'
        for event in ('INSERT', 'UPDATE'):
            if dates: s.c.execute(f'CREATE {"TEMP" if table[0] == "#" else ""} TRIGGER "tds_{event}_{table}" AFTER {event} ON "{table}" BEGIN {change} END')
    def computed(s, table, column): return any(r[1] == column and r[6] > 1 for r in s.c.execute(f'pragma table_xinfo("{table}")'))
    def change(s, sql, params, table, event, bodies):
        """A statement with its triggers, all of it or nothing."""
        cols = [c for c, _ in s.columns(table)]; row = lambda which: ', '.join(f'{which}."{c}"' for c in cols)
        s.c.execute('savepoint tds_change')
        try:
            for name in ('inserted', 'deleted'): s.c.execute(f'create temp table {name} as select * from "{table}" where 0')
            fills = ('' if event == 'delete' else f'insert into inserted values({row("NEW")});') + ('' if event == 'insert' else f'insert into deleted values({row("OLD")});')
            s.c.execute(f'create temp trigger tds_fire after {event} on main."{table}" begin {fills} end')
            n = s.c.execute(sql, params).rowcount
            s.c.execute('drop trigger tds_fire')
            for name in ('inserted', 'deleted'):                             # the trigger of the dates changes each row once more
                s.c.execute(f'delete from {name} where rowid not in (select max(rowid) from {name} group by ' + ', '.join(f'"{c}"' for c in cols) + ')')
            for body in bodies:
                for q in split(body): s.run(q, {})
            for name in ('inserted', 'deleted'): s.c.execute(f'drop table {name}')
            s.c.execute('release tds_change'); return n
        except Exception: s.c.execute('rollback to tds_change'); s.c.execute('release tds_change'); raise
    def types(s, sql, cur):
        """Declared types of a result set: PRAGMA table_info of a temporary view with the parameters as NULL."""
        try:
            s.c.execute('create temp view tds_v as ' + ''.join('NULL' if t.startswith('@') else t for t in toks(sql)))
            try: return [r[2] for r in s.c.execute('pragma temp.table_info(tds_v)')]
            finally: s.c.execute('drop view temp.tds_v')
        except sqlite3.Error: return [''] * len(cur.description)
    def run(s, stmt, params):
        """(columns or None, rows, rowcount); columns are (name, declared type)."""
        st = stmt.strip().rstrip(';'); up = re.sub(r'\s+', ' ', st.upper())
        m = re.match(r'SET LOCK_TIMEOUT (-?\d+)$', up)
        if m: s.c.execute(f'pragma busy_timeout = {min(int(m[1]) % 2**32, 2**31 - 1)}')
        if up.startswith('SET ') or up.startswith('USE ') or not up: return None, [], None
        m = re.match(r'IF @@TRANCOUNT ?(>|=|<>) ?0 (.*)', up)
        if m:
            if {'>': s.c.in_transaction, '<>': s.c.in_transaction, '=': not s.c.in_transaction}[m[1]]:
                for w in re.findall(r'(BEGIN|COMMIT|ROLLBACK)', m[2]): s.tran(w.lower())
            return None, [], None
        m = re.match(r'(BEGIN|COMMIT|ROLLBACK)( TRAN(SACTION)?)?( \w+)?$', up)
        if m:
            if m[1] != 'BEGIN' and not s.c.in_transaction: raise SqlError(3902 if m[1] == 'COMMIT' else 3903, 16, f'The {m[1]} TRANSACTION request has no corresponding BEGIN TRANSACTION.')
            s.tran(m[1].lower()); return None, [], None
        if module(st): s.define(st); s.known = None, (); return None, [], None
        functions, triggers, blobs = s.schema(); sql = rewrite(st, functions, blobs)
        names = {t[1:] for t in toks(sql) if t.startswith('@')}
        used = {k: v for k, v in params.items() if k in names}; s.failed = None
        m = re.match(r'\s*(INSERT(?: INTO)?|UPDATE|DELETE(?: FROM)?)\s+([^\s(]+)', sql, re.I); table, event = (bare(m[2]).lower(), m[1].split()[0].lower()) if m else ('', '')
        bodies = [b for _, t, e, b in triggers if (t, e) == (table, event)]
        try:
            if bodies: s.rc = s.change(sql, used, table, event, bodies); return None, [], s.rc
            cur = s.c.execute(sql, used)
            made = re.match(r'\s*CREATE\s+(?:TEMP\s+)?TABLE\s+([^\s(]+)', sql, re.I)
            if made: s.normalise(bare(made[1]))
            if cur.description is None:
                s.rc = max(cur.rowcount, 0); return None, [], (cur.rowcount if cur.rowcount >= 0 else None)
            rows = cur.fetchall(); s.rc = len(rows)
            return list(zip([d[0] for d in cur.description], s.types(sql, cur))), rows, len(rows)
        except sqlite3.Error as e: raise s.failed or SqlError(*mssql(str(e))) from None
def mssql(m):
    for pat, num, cls, text in ((r'UNIQUE constraint failed: (\S+)', 2627, 14, "Violation of PRIMARY KEY constraint. Cannot insert duplicate key in object '{0}'."),
            (r'NOT NULL constraint failed: (\S+)', 515, 16, "Cannot insert the value NULL into column '{0}'; column does not allow nulls."), (r'(FOREIGN KEY|CHECK) constraint', 547, 16, 'The statement conflicted with the {0} constraint.'),
            (r'no such table: (\S+)', 208, 16, "Invalid object name '{0}'."), (r'no such column: (\S+)', 207, 16, "Invalid column name '{0}'."), (r'near "(.*?)": syntax', 102, 15, "Incorrect syntax near '{0}'."),
            (r'table \S* ?"?(\w+)"? already exists', 2714, 16, "There is already an object named '{0}' in the database."), (r'(locked|busy)', *TIMEOUT)):
        x = re.search(pat, m)
        if x: return num, cls, text.format(x[1])
    return 50000, 16, m

