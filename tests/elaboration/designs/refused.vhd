-- What GHDL refuses, each costing its own entity or instance at most.
library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
entity TwoPorts is
  port (ca, cb, we : in std_logic; a : in std_logic_vector(3 downto 0); d : in std_logic_vector(7 downto 0);
        qa, qb : out std_logic_vector(7 downto 0));
end entity;
architecture rtl of TwoPorts is
  type ram_t is array (0 to 15) of std_logic_vector(7 downto 0);
  shared variable ram : ram_t;
  signal Touched : std_logic;
begin
  process (ca) begin
    if rising_edge(ca) then
      if we = '1' then ram(to_integer(unsigned(a))) := d; end if;
      qa <= ram(to_integer(unsigned(a))); Touched <= we;
    end if;
  end process;
  process (cb) begin if rising_edge(cb) then qb <= ram(to_integer(unsigned(a))); end if; end process;
  inside : for i in 1 to 1 generate signal s : std_logic; begin s <= we; end generate;
end architecture;
entity Inner is port (a : in bit); end entity;
architecture rtl of Inner is signal deep : bit; begin deep <= a; end architecture;
entity Waits is port (a : in bit; q : out bit); end entity;
architecture rtl of Waits is signal s : bit; begin
	U_In : entity work.Inner port map (s);
	process begin wait for 5 ns; q <= not a; end process;
end architecture;
entity Wrong is port (a : in bit; q : out bit); end entity;
architecture rtl of Wrong is signal s : bit; begin
  s <= nowhere(a);
  q <= s and more;
end architecture;
entity Right is port (a : in bit; q : out bit); end entity;
architecture rtl of Right is signal s : bit; begin s <= a; q <= s; end architecture;
library unisim, vendor; use unisim.vcomponents.all; use vendor.kinds.kind_t;
library ieee; use ieee.std_logic_1164.all;
entity Typed is port (a : in kind_t); end entity;
architecture rtl of Typed is begin end architecture;
library ieee; use ieee.std_logic_1164.all;
library unisim, vendor; use unisim.vcomponents.all; use vendor.all;
entity top is port (clk : in std_logic; a : in bit; d : in std_logic_vector(7 downto 0)); end entity;
architecture rtl of top is
  signal c, locked, hold : std_logic; signal q : std_logic_vector(7 downto 0); signal y, z : bit;
begin
  Buf : BUFG port map (I => clk, -- the clock; buffered
                       O => c);
  Pll : entity vendor.Pll generic map (Name => "a;b", Mult => 4) port map (clk, c, locked => locked);
  FF : unisim.vcomponents.FDRE generic map (INIT => '0') port map (D => locked, Q => hold);
	Gone : entity work.Missing port map (a, z);
  Ram : entity work.TwoPorts port map (c, c, locked, d(3 downto 0), d, q, open);
  Wt : entity work.Waits port map (a, y);
  Bad : entity work.Wrong port map (a, open);
  Good : entity work.Right port map (z, open);
  T : entity work.Typed port map (a);
end architecture;

--= top:top clk a c locked hold y z d[7:0] q[7:0]
--= top/Buf:BUFG
--= top/Pll:Pll
--= top/FF:FDRE
--= top/Gone:Missing
--= top/Ram:TwoPorts ca cb we Touched a[3:0] d[7:0] qa[7:0] qb[7:0]
--= top/Ram/inside[1]:inside s
--= top/Wt:Waits a q s
--= top/Wt/U_In:Inner a deep
--= top/Bad:Wrong a q
--= top/Good:Right a q s
--= top/T:Typed
