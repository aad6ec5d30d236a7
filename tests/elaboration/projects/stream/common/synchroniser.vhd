library ieee; use ieee.std_logic_1164.all;
entity synchroniser is
  generic (STAGES : positive range 2 to 8 := 2);
  port (clk, d : in std_logic; q : out std_logic);
end entity;
architecture rtl of synchroniser is
  signal Chain : std_logic_vector(1 to STAGES) := (others => '0');
  attribute async_reg : string;
  attribute async_reg of Chain : signal is "true";
begin
  Chain <= d & Chain(1 to STAGES - 1) when rising_edge(clk);
  q <= Chain(STAGES);
end architecture;
