library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
library common; use common.common_pkg.all;
library axis; use axis.axis_pkg.all;
entity stream_top is
  generic (LANES : positive := 2);
  port (
    Clk, ClkRead, RstPin : in  std_logic;
    lane_in   : in  beats_t(0 to LANES - 1);
    ReadAddr  : in  std_logic_vector(3 downto 0);
    ReadData  : out std_logic_vector(15 downto 0);
    parities  : out std_logic_vector(LANES - 1 downto 0);
    mode_code : out std_logic_vector(1 downto 0)
  );
end entity;
architecture structure of stream_top is
  constant ADDR_BITS : natural := bits_for(16);
  signal rst      : std_logic;
  signal lane_out : beats_t(LANES - 1 downto 0);
  signal statuses : status_t;
  signal busy     : std_logic_vector(0 to 2);
  signal wr_addr  : unsigned(ADDR_BITS - 1 downto 0) := (others => '0');
  signal unused   : version_t;
  signal none     : std_logic_vector(-1 downto 0);
  component parity is
    generic (WIDTH : positive := 4; KIND : string := "even");
    port (d : in std_logic_vector(WIDTH - 1 downto 0); p : out std_logic);
  end component;
begin
  rst_sync : entity common.synchroniser generic map (STAGES => 3) port map (clk => Clk, d => RstPin, q => rst);
  lanes_up : for n in lane_in'range generate
    wide : if n = 0 generate
      signal User : std_logic_vector(3 downto 0);
    begin
      User <= lane_in(n).data(3 downto 0);
      pipe : entity axis.pipeline
        generic map (DEPTH => 3, USER_BITS => 4)
        port map (clk => Clk, input => lane_in(n), user => User, output => lane_out(n), Busy => busy);
    end generate;
    narrow : if n > 0 generate
      pipe : entity axis.pipeline
        generic map (DEPTH => 1)
        port map (clk => Clk, input => lane_in(n), user => none, output => lane_out(n), Busy => open);
    end generate;
  end generate;
  checks : for n in LANES - 1 downto 0 generate
    for check : parity use entity axis.parity(tree);
  begin
    check : parity
      generic map (WIDTH => n + 2, KIND => "odd")
      port map (d => lane_out(n).data(n + 1 downto 0), p => parities(n));
  end generate;
  control_inst : entity work.control
    generic map (LIMIT => 5)
    port map (clk => Clk, rst => rst, beat => lane_out(0), status => statuses);
  wr_addr <= wr_addr + 1 when rising_edge(Clk);
  buffer_ram : entity common.tdp_ram
    generic map (DATA_BITS => 16, ADDR_BITS => ADDR_BITS)
    port map (ClkA => Clk, ClkB => ClkRead, WeA => lane_out(1).valid, WeB => '0', AddrA => wr_addr,
              AddrB => unsigned(ReadAddr), DinA => lane_out(1).data, DinB => x"0000", DoutA => open,
              DoutB => ReadData);
  unused <= statuses.version;
  mode_code <= std_logic_vector(to_unsigned(mode_t'pos(statuses.mode), 2));
end architecture;
