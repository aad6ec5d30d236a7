library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
library vendorcells; use vendorcells.components.all;
entity accumulator is
  generic (WIDTH : positive; TAP_COUNT : natural := 2; NOTES : string := "");
  port (
    Clk  : in  std_logic;
    Din  : in  std_logic_vector(WIDTH - 1 downto 0);
    Dout : out std_logic_vector(WIDTH - 1 downto 0);
    Mark : out std_logic_vector(TAP_COUNT - 1 downto 0);
    Hit  : out std_logic
  );
end entity;
architecture rtl of accumulator is
  type step_t is record
    Sum   : unsigned(WIDTH - 1 downto 0);
    Carry : std_logic;
  end record;
  type steps_t is array (1 downto 0) of step_t;
  signal steps    : steps_t;
  signal BufClk   : std_logic;
  signal matched  : std_logic;
  component edge_detect is
    port (clk, d : in std_logic; rise : out std_logic);
  end component;
begin
  clock_cell : BUFCE port map (I => Clk, CE => '1', O => BufClk);
  process (BufClk)
  begin
    if rising_edge(BufClk) then
      steps(0).Sum <= steps(0).Sum + unsigned(Din);
      steps(0).Carry <= steps(0).Sum(WIDTH - 1);
      steps(1) <= steps(0);
    end if;
  end process;
  Dout <= std_logic_vector(steps(1).Sum);
  Mark <= (others => steps(1).Carry);
  detector : edge_detect port map (clk => BufClk, d => steps(1).Carry, rise => matched);
  Hit <= matched;
end architecture;
