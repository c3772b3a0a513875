<?php
// An object cache (object-cache.php) that keeps WordPress' values in a Redis, and a copy of what a request has seen in
// that request, as the usual ones do. WordPress adds the functions that are missing here.
class WP_Object_Cache {
	private $redis;
	private $copies     = array();
	private $global     = array();
	private $not_stored = array( 'counts' => true, 'plugins' => true );

	public function __construct() {
		$this->redis = new Redis();
		$this->redis->connect( getenv( 'WORLD_DIR' ) . '/redis.sock' );
		$this->redis->setOption( Redis::OPT_SERIALIZER, Redis::SERIALIZER_PHP );
	}

	public function key( $key, $group ) {
		return basename( dirname( ABSPATH ) ) . ':' . ( $group ? $group : 'default' ) . ':' . $key;
	}

	public function get( $key, $group, $force, &$found ) {
		$id    = $this->key( $key, $group );
		$found = true;
		if ( ! $force && array_key_exists( $id, $this->copies ) ) {
			$value = $this->copies[ $id ];
			return is_object( $value ) ? clone $value : $value;
		}
		$stored = isset( $this->not_stored[ $group ] ) ? false : $this->redis->get( $id );
		if ( ! is_array( $stored ) ) {
			$found = false;
			return false;
		}
		$this->copies[ $id ] = $stored[0];
		return $stored[0];
	}

	public function set( $key, $value, $group, $seconds ) {
		$id                  = $this->key( $key, $group );
		$this->copies[ $id ] = is_object( $value ) ? clone $value : $value;
		if ( isset( $this->not_stored[ $group ] ) ) {
			return true;
		}
		return $seconds > 0
			? $this->redis->setex( $id, $seconds, array( $value ) )
			: $this->redis->set( $id, array( $value ) );
	}

	public function delete( $key, $group ) {
		$id = $this->key( $key, $group );
		unset( $this->copies[ $id ] );
		return $this->redis->del( $id ) > 0;
	}

	public function flush() {
		$this->copies = array();
		return $this->redis->flushDB();
	}

	public function do_not_store( $groups ) {
		$this->not_stored += array_fill_keys( (array) $groups, true );
	}
}

function wp_cache_init() {
	$GLOBALS['wp_object_cache'] = new WP_Object_Cache();
}

function wp_cache_get( $key, $group = '', $force = false, &$found = null ) {
	return $GLOBALS['wp_object_cache']->get( $key, $group, $force, $found );
}

function wp_cache_set( $key, $value, $group = '', $seconds = 0 ) {
	return $GLOBALS['wp_object_cache']->set( $key, $value, $group, (int) $seconds );
}

function wp_cache_add( $key, $value, $group = '', $seconds = 0 ) {
	wp_cache_get( $key, $group, false, $found );
	return ! $found && wp_cache_set( $key, $value, $group, $seconds );
}

function wp_cache_replace( $key, $value, $group = '', $seconds = 0 ) {
	wp_cache_get( $key, $group, false, $found );
	return $found && wp_cache_set( $key, $value, $group, $seconds );
}

function wp_cache_delete( $key, $group = '' ) {
	return $GLOBALS['wp_object_cache']->delete( $key, $group );
}

function wp_cache_incr( $key, $by = 1, $group = '' ) {
	$value = max( 0, (int) wp_cache_get( $key, $group ) + $by );
	wp_cache_set( $key, $value, $group );
	return $value;
}

function wp_cache_decr( $key, $by = 1, $group = '' ) {
	return wp_cache_incr( $key, -$by, $group );
}

function wp_cache_flush() {
	return $GLOBALS['wp_object_cache']->flush();
}

function wp_cache_add_global_groups( $groups ) {
	// There is one site.
}

function wp_cache_add_non_persistent_groups( $groups ) {
	$GLOBALS['wp_object_cache']->do_not_store( $groups );
}

function wp_cache_close() {
	return true;
}
