-- The usual memory with two ports, each with a clock and a width of its own address.
library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
entity tdp_ram is
  generic (DATA_BITS : positive := 8; ADDR_BITS : positive);
  port (
    ClkA, ClkB   : in  std_logic;
    WeA, WeB     : in  std_logic;
    AddrA, AddrB : in  unsigned(ADDR_BITS - 1 downto 0);
    DinA, DinB   : in  std_logic_vector(DATA_BITS - 1 downto 0);
    DoutA, DoutB : out std_logic_vector(DATA_BITS - 1 downto 0)
  );
end entity;
architecture rtl of tdp_ram is
  type memory_t is array (0 to 2**ADDR_BITS - 1) of std_logic_vector(DATA_BITS - 1 downto 0);
  shared variable memory : memory_t := (others => (others => '0'));
  attribute ram_style : string;
  attribute ram_style of memory : variable is "block";
  signal readA, readB : std_logic_vector(DATA_BITS - 1 downto 0) := (others => '0');
begin
  port_a : process (ClkA)
  begin
    if rising_edge(ClkA) then
      if WeA = '1' then
        memory(to_integer(AddrA)) := DinA;
      end if;
      readA <= memory(to_integer(AddrA));
    end if;
  end process;
  port_b : process (ClkB)
  begin
    if rising_edge(ClkB) then
      if WeB = '1' then
        memory(to_integer(AddrB)) := DinB;
      end if;
      readB <= memory(to_integer(AddrB));
    end if;
  end process;
  DoutA <= readA;
  DoutB <= readB;
end architecture;
