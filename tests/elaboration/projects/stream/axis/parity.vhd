-- A tree from the highest bit down.
library ieee; use ieee.std_logic_1164.all;
entity parity is
  generic (WIDTH : positive := 4; KIND : string := "even");
  port (d : in std_logic_vector(WIDTH - 1 downto 0); p : out std_logic);
end entity;
architecture tree of parity is
  signal sum : std_logic_vector(WIDTH downto 0);
begin
  sum(WIDTH) <= '0' when KIND = "even" else '1';
  Fold : for i in WIDTH - 1 downto 0 generate
    signal Term : std_logic;
  begin
    Term <= d(i);
    last : if i = 0 generate
      signal final : std_logic;
    begin
      final <= sum(i + 1) xor Term;
      sum(i) <= final;
    else generate
      sum(i) <= sum(i + 1) xor Term;
    end generate;
  end generate;
  p <= sum(0);
end architecture;
