architecture rtl of control is
  signal State, NextState : mode_t := Idle;
  signal level            : level_t := 0;
  signal flags            : mode_flags := (others => '0');
  signal enough           : boolean;
  -- synthesis translate_off
  signal sim_cycles       : natural := 0;
  -- synthesis translate_on
begin
  enough <= level >= LIMIT;
  next_state : process (State, beat, enough)
  begin
    NextState <= State;
    case State is
      when Idle => if beat.valid = '1' then NextState <= Fill; end if;
      when Fill => if enough then NextState <= Drain; end if;
      when Drain => if beat.side.last = '1' then NextState <= Idle; end if;
      when others => NextState <= Fault;
    end case;
  end process;
  registers : process (clk)
  begin
    if rising_edge(clk) then
      if rst = '1' then
        State <= Idle;
        level <= 0;
        flags <= (others => '0');
      else
        State <= NextState;
        flags(State) <= '1';
        if enough then
          level <= 0;
        else
          level <= level + 1;
        end if;
      end if;
      -- pragma translate_off
      sim_cycles <= sim_cycles + 1;
      assert sim_cycles < 1_000_000 report "Still running" severity warning;
      -- pragma translate_on
    end if;
  end process;
  status.mode <= State;
  status.seen <= flags;
  status.version <= (Major => x"2", Minor => x"1");
  status.taps(0) <= beat.data(15 downto 8);
  status.taps(1) <= beat.data(7 downto 0);
end architecture;
