-- Shapes and scopes that the translation to Verilog loses, and what it makes up.
library ieee; use ieee.std_logic_1164.all;
entity leaf is
  generic (W : positive);
  port (a : in std_logic; y : out std_logic_vector(0 to W - 1));
end entity;
architecture rtl of leaf is signal s, never : std_logic_vector(7 downto 4); begin
  s <= (others => a); y <= (others => s(4));
end architecture;
library ieee; use ieee.std_logic_1164.all;
entity top is port (clk, a : in std_logic; pad : inout std_logic; q : out std_logic_vector(15 downto 8)); end;
architecture rtl of top is
  type state_t is (IDLE, RUN, STOP); signal state : state_t;
  type rec_t is record x : std_logic; y : std_logic_vector(1 downto 0); end record; signal rec : rec_t;
  type mem_t is array (0 to 3) of std_logic_vector(7 downto 0); signal mem : mem_t;
  signal n1_o, tied : std_logic; signal one : std_logic_vector(0 downto 0);
  component ts_jtag is port (a, b : in std_logic; z : out std_logic); end component;
begin
  pad <= a when n1_o = '1' else 'Z'; tied <= '1'; one(0) <= tied;
  gen : for i in 6 downto 5 generate signal inner : std_logic; begin
    inner <= a xor n1_o;
    u : entity work.leaf generic map (W => i) port map (a => inner, y => open);
    extra : if i = 5 generate signal only : std_logic; begin only <= inner; q(8) <= only; end generate;
  end generate;
  blk : block begin b : ts_jtag port map (a => a, b => one(0), z => n1_o); end block;
  process (clk) variable v : std_logic; begin
    if rising_edge(clk) then
      v := a; rec.x <= v; rec.y <= rec.x & v;
      case state is when IDLE => state <= RUN; when RUN => state <= STOP; when STOP => state <= IDLE; end case;
    end if;
  end process;
  q(15) <= '1' when state = IDLE else '0'; q(14 downto 13) <= rec.y; q(12 downto 9) <= (others => '0');
end architecture;

--= top:top clk a pad! rec.x n1_o tied! q[15:8]!12!11!10!9 state[1:0] rec.y[1:0]
--= mem[0][7:0] mem[1][7:0] mem[2][7:0] mem[3][7:0] one[0:0]!
--= top/gen[5]:gen inner
--= top/gen[5]/u:leaf a y[0:4] s[7:4] never[7:4]
--= top/gen[5]/extra:extra only
--= top/gen[6]:gen inner
--= top/gen[6]/u:leaf a y[0:5] s[7:4] never[7:4]
--= top/blk:blk
--= top/blk/b:ts_jtag
--= TS_JTAG!
