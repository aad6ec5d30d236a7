-- Vectors that have no element for these generics.
library ieee; use ieee.std_logic_1164.all;
entity Part is
  generic (W : natural);
  port (clk : in std_logic; side : in std_logic_vector(W - 1 downto 0); d : in std_logic_vector(3 downto 0);
        o : out std_logic_vector(W - 1 downto 0); q : out std_logic_vector(3 downto 0));
end entity;
architecture rtl of Part is
  signal s : std_logic_vector(W - 1 downto 0); signal both : std_logic_vector(W + 3 downto 0); signal same : boolean;
begin
  process (clk) begin
    if rising_edge(clk) then s <= side; both <= side & d; same <= s = side; end if;
  end process;
  o <= s; q <= both(3 downto 0) when same else d;
end architecture;
library ieee; use ieee.std_logic_1164.all;
entity top is
  generic (W : natural := 0);
  port (clk : in std_logic; x : in std_logic_vector(W - 1 downto 0); d : in std_logic_vector(3 downto 0);
        q, r : out std_logic_vector(3 downto 0); z : out std_logic_vector(W - 1 downto 0));
end entity;
architecture rtl of top is signal m : std_logic_vector(0 to W - 1); signal empty : bit_vector(2 downto 3); begin
  none : entity work.Part generic map (W) port map (clk, x, d, m, q);
  two : entity work.Part generic map (W + 2) port map (clk, d(1 downto 0), d, open, r);
  z <= m;
end architecture;

--= top:top clk d[3:0] q[3:0] r[3:0]
--= top/none:Part clk same d[3:0] q[3:0] both[3:0]
--= top/two:Part clk same side[1:0] d[3:0] o[1:0] q[3:0] s[1:0] both[5:0]
