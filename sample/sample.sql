-- The sample database of the demo host: customers, articles and 120,000 orders over 2023-2026.
-- Built by SQL alone, with no random(): every "random" choice is arithmetic on the row number,
-- so the file comes out the same on every build.
--   sqlite3 out.db < sample/sample.sql

BEGIN;

CREATE TABLE customers (
    id INTEGER PRIMARY KEY,
    name VARCHAR(60) NOT NULL,
    city VARCHAR(40) NOT NULL,
    province CHAR(2) NOT NULL,
    category VARCHAR(10) NOT NULL,      -- 'gold', 'silver' or 'standard'
    colour VARCHAR(11),                 -- row colour "r,g,b"; NULL or '' for none
    since DATE NOT NULL,
    credit_limit DECIMAL(10,2) NOT NULL
);

CREATE TABLE articles (
    id INTEGER PRIMARY KEY,
    code VARCHAR(12) NOT NULL UNIQUE,
    description VARCHAR(60) NOT NULL,
    price DECIMAL(10,2) NOT NULL,
    unit VARCHAR(4) NOT NULL
);

CREATE TABLE orders (
    id INTEGER PRIMARY KEY,
    customer_id INTEGER NOT NULL REFERENCES customers (id),
    article_id INTEGER NOT NULL REFERENCES articles (id),
    order_date DATE NOT NULL,
    amount DECIMAL(10,2) NOT NULL,
    quantity INTEGER NOT NULL,
    paid BOOLEAN NOT NULL,
    note VARCHAR(60)
);

-- Word lists, numbered from 0, that the generators below pick from.
CREATE TEMP TABLE first_names (n INTEGER PRIMARY KEY, word TEXT);
INSERT INTO first_names VALUES
    (0, 'Marco'), (1, 'Giulia'), (2, 'Luca'), (3, 'Francesca'), (4, 'Alessandro'), (5, 'Chiara'),
    (6, 'Matteo'), (7, 'Sara'), (8, 'Lorenzo'), (9, 'Elena'), (10, 'Davide'), (11, 'Martina'),
    (12, 'Stefano'), (13, 'Valentina'), (14, 'Andrea'), (15, 'Federica'), (16, 'Paolo'), (17, 'Silvia'),
    (18, 'Giovanni'), (19, 'Anna'), (20, 'Roberto'), (21, 'Laura'), (22, 'Simone'), (23, 'Beatrice');

CREATE TEMP TABLE surnames (n INTEGER PRIMARY KEY, word TEXT);
INSERT INTO surnames VALUES
    (0, 'Rossi'), (1, 'Bianchi'), (2, 'Ferrari'), (3, 'Esposito'), (4, 'Romano'), (5, 'Colombo'),
    (6, 'Ricci'), (7, 'Marino'), (8, 'Greco'), (9, 'Bruno'), (10, 'Gallo'), (11, 'Conti'),
    (12, 'De Luca'), (13, 'Mancini'), (14, 'Costa'), (15, 'Giordano'), (16, 'Rizzo'), (17, 'Lombardi'),
    (18, 'Moretti'), (19, 'Barbieri'), (20, 'Fontana'), (21, 'Santoro'), (22, 'Mariani'), (23, 'Rinaldi'),
    (24, 'Caruso'), (25, 'Ferrara'), (26, 'Galli'), (27, 'Martini'), (28, 'Leone'), (29, 'Longo');

-- Firms: a trade and a form, joined with a surname ("Ferramenta Rossi S.r.l.").
CREATE TEMP TABLE trades (n INTEGER PRIMARY KEY, word TEXT);
INSERT INTO trades VALUES
    (0, 'Ferramenta'), (1, 'Idraulica'), (2, 'Elettroforniture'), (3, 'Edilizia'), (4, 'Falegnameria'),
    (5, 'Autofficina'), (6, 'Colorificio'), (7, 'Termotecnica'), (8, 'Serramenti'), (9, 'Giardinaggio');

CREATE TEMP TABLE firm_forms (n INTEGER PRIMARY KEY, word TEXT);
INSERT INTO firm_forms VALUES (0, 'S.r.l.'), (1, 'S.n.c.'), (2, 'S.p.A.'), (3, '& Figli'), (4, 'S.a.s.');

CREATE TEMP TABLE cities (n INTEGER PRIMARY KEY, word TEXT, province TEXT);
INSERT INTO cities VALUES
    (0, 'Milano', 'MI'), (1, 'Torino', 'TO'), (2, 'Bologna', 'BO'), (3, 'Firenze', 'FI'),
    (4, 'Verona', 'VR'), (5, 'Padova', 'PD'), (6, 'Brescia', 'BS'), (7, 'Bergamo', 'BG'),
    (8, 'Modena', 'MO'), (9, 'Parma', 'PR'), (10, 'Reggio Emilia', 'RE'), (11, 'Vicenza', 'VI'),
    (12, 'Treviso', 'TV'), (13, 'Genova', 'GE'), (14, 'Lucca', 'LU'), (15, 'Pisa', 'PI'),
    (16, 'Ancona', 'AN'), (17, 'Perugia', 'PG'), (18, 'Novara', 'NO'), (19, 'Como', 'CO'),
    (20, 'Udine', 'UD'), (21, 'Trento', 'TN'), (22, 'Rimini', 'RN'), (23, 'Forlì', 'FC'),
    (24, 'Sassuolo', 'MO'), (25, 'Carpi', 'MO'), (26, 'Lodi', 'LO'), (27, 'Cremona', 'CR');

CREATE TEMP TABLE products (n INTEGER PRIMARY KEY, word TEXT, unit TEXT, base_cents INTEGER);
INSERT INTO products VALUES
    (0, 'Vite autofilettante', 'conf', 450), (1, 'Tassello in nylon', 'conf', 380),
    (2, 'Cavo elettrico', 'm', 120), (3, 'Tubo multistrato', 'm', 310), (4, 'Pannello OSB', 'pz', 1890),
    (5, 'Vernice all''acqua', 'l', 1450), (6, 'Guanti da lavoro', 'paio', 390), (7, 'Raccordo a gomito', 'pz', 260),
    (8, 'Silicone sigillante', 'pz', 640), (9, 'Nastro isolante', 'pz', 150), (10, 'Interruttore bipolare', 'pz', 2290),
    (11, 'Cerniera per mobili', 'pz', 310), (12, 'Lampada LED', 'pz', 590), (13, 'Colla vinilica', 'kg', 720),
    (14, 'Rubinetto a sfera', 'pz', 1190), (15, 'Carta abrasiva', 'fg', 95);

CREATE TEMP TABLE sizes (n INTEGER PRIMARY KEY, word TEXT, factor INTEGER);
INSERT INTO sizes VALUES
    (0, '4x20', 100), (1, '6x40', 120), (2, '8x60', 145), (3, 'mini', 80), (4, 'standard', 100),
    (5, 'maxi', 160), (6, 'bianco', 100), (7, 'grigio', 105), (8, 'professionale', 210), (9, 'economico', 70),
    (10, 'da 10', 90), (11, 'da 25', 180), (12, 'da 50', 320);

CREATE TEMP TABLE notes (n INTEGER PRIMARY KEY, word TEXT);
INSERT INTO notes VALUES
    (0, 'Consegna al mattino'), (1, 'Chiamare prima della consegna'), (2, 'Ritiro in magazzino'),
    (3, 'Fattura separata'), (4, 'Urgente'), (5, 'Imballo rinforzato'), (6, 'Consegna al piano'),
    (7, 'Pagamento a 30 giorni'), (8, 'Merce in conto visione'), (9, 'Sostituisce ordine annullato');

-- 2,000 customers: three in four are people, the rest firms. One in nine is 'gold' (a soft
-- almond row), one in five 'silver' (a pale blue row); the others have no colour, some NULL and
-- some empty text.
INSERT INTO customers (id, name, city, province, category, colour, since, credit_limit)
WITH RECURSIVE seq(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM seq WHERE i < 2000),
picks AS (
    SELECT i,
           (i * 2654435761) % 4294967291 AS h1,
           (i * 40503 + 12345) % 65521 AS h2
    FROM seq
)
SELECT i,
       CASE WHEN h2 % 4 = 3
            THEN (SELECT word FROM trades WHERE n = h1 % 10) || ' ' ||
                 (SELECT word FROM surnames WHERE n = h2 % 30) || ' ' ||
                 (SELECT word FROM firm_forms WHERE n = (h1 / 7) % 5)
            ELSE (SELECT word FROM surnames WHERE n = h1 % 30) || ' ' ||
                 (SELECT word FROM first_names WHERE n = h2 % 24)
       END,
       (SELECT word FROM cities WHERE n = (h1 / 31) % 28),
       (SELECT province FROM cities WHERE n = (h1 / 31) % 28),
       CASE WHEN i % 9 = 0 THEN 'gold' WHEN i % 5 = 0 THEN 'silver' ELSE 'standard' END,
       CASE WHEN i % 9 = 0 THEN '255,235,205'
            WHEN i % 5 = 0 THEN '220,235,250'
            WHEN i % 2 = 0 THEN ''
            ELSE NULL
       END,
       date('2010-01-01', '+' || (h1 % 4700) || ' days'),
       CASE WHEN i % 9 = 0 THEN 25000 WHEN i % 5 = 0 THEN 10000 ELSE 2500 + (h2 % 40) * 125 END
FROM picks;

-- 208 articles: every product in each of its variants.
INSERT INTO articles (id, code, description, price, unit)
SELECT p.n * 13 + s.n + 1,
       printf('ART-%04d', p.n * 13 + s.n + 1),
       p.word || ' ' || s.word,
       round(p.base_cents * s.factor / 10000.0 + ((p.n * 7 + s.n * 3) % 10) / 100.0, 2),
       p.unit
FROM temp.products AS p CROSS JOIN temp.sizes AS s
ORDER BY 1;

-- 120,000 orders numbered in date order over the four years 2023-2026 (1,461 days), for
-- customers and articles picked by multiplicative hashing of the order number.
INSERT INTO orders (id, customer_id, article_id, order_date, amount, quantity, paid, note)
WITH RECURSIVE seq(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM seq WHERE i < 120000),
picks AS (
    SELECT i,
           (i * 2654435761) % 4294967291 AS h1,
           (i * 48271) % 2147483647 AS h2,
           date('2023-01-01', '+' || ((i - 1) * 1461 / 120000) || ' days') AS day
    FROM seq
),
lines AS (
    SELECT i, h1, h2, day,
           1 + h1 % 2000 AS customer_id,
           1 + h2 % 208 AS article_id,
           CASE WHEN h2 % 10 < 6 THEN 1 + h1 % 5 ELSE 1 + h1 % 48 END AS quantity,
           CASE WHEN h1 % 8 = 0 THEN 10 WHEN h1 % 5 = 0 THEN 5 ELSE 0 END AS discount
    FROM picks
)
SELECT l.i, l.customer_id, l.article_id, l.day,
       round(a.price * l.quantity * (100 - l.discount) / 100.0, 2),
       l.quantity,
       CASE WHEN l.day < '2026-01-01' THEN (l.h2 % 100) < 96 ELSE (l.h2 % 100) < 55 END,
       CASE WHEN l.h1 % 11 = 0 THEN (SELECT word FROM notes WHERE n = (l.h2 / 11) % 10)
            WHEN l.h1 % 11 = 1 THEN ''
            ELSE NULL
       END
FROM lines AS l JOIN articles AS a ON a.id = l.article_id;

CREATE INDEX orders_customer ON orders (customer_id);
CREATE INDEX orders_date ON orders (order_date);

CREATE VIEW v_orders AS
SELECT o.id, o.order_date, c.name AS customer, c.city, c.category, c.colour,
       a.code AS article, a.description, o.quantity, o.amount, o.paid, o.note, o.customer_id
FROM orders AS o
JOIN customers AS c ON c.id = o.customer_id
JOIN articles AS a ON a.id = o.article_id;

-- Yearly totals by customer: a second view for the structure page.
CREATE VIEW v_customer_years AS
SELECT c.id AS customer_id, c.name AS customer, c.city, substr(o.order_date, 1, 4) AS year,
       count(*) AS orders, round(sum(o.amount), 2) AS total
FROM orders AS o JOIN customers AS c ON c.id = o.customer_id
GROUP BY c.id, year;

COMMIT;

DROP TABLE temp.first_names;
DROP TABLE temp.surnames;
DROP TABLE temp.trades;
DROP TABLE temp.firm_forms;
DROP TABLE temp.cities;
DROP TABLE temp.products;
DROP TABLE temp.sizes;
DROP TABLE temp.notes;

ANALYZE;
