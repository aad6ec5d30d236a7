-- One register with a side channel that is only there when it has a width.
library ieee; use ieee.std_logic_1164.all;
use work.axis_pkg.all;
entity skid is
  generic (USER_BITS : natural := 0);
  port (
    clk      : in  std_logic;
    s_beat   : in  beat_t;
    s_user   : in  std_logic_vector(USER_BITS - 1 downto 0);
    s_ready  : out std_logic;
    m_beat   : out beat_t;
    m_user   : out std_logic_vector(USER_BITS - 1 downto 0);
    m_ready  : in  std_logic
  );
end entity;
architecture rtl of skid is
  signal held      : beat_t := NO_BEAT;
  signal held_user : std_logic_vector(USER_BITS - 1 downto 0);
  signal ready     : std_logic;
begin
  ready <= m_ready or not held.valid;
  process (clk)
  begin
    if rising_edge(clk) and ready = '1' then
      held <= s_beat;
      held_user <= s_user;
    end if;
  end process;
  s_ready <= ready;
  m_beat <= held;
  m_user <= held_user;
end architecture;
